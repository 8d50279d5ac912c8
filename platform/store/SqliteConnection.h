#pragma once

#include "platform/store/StoreError.h"

#include <QtCore/QHash>
#include <QtCore/QVariant>
#include <QtSql/QSqlQuery>

#include <functional>
#include <memory>

namespace platform {

// One connection to one SQLite file, through Qt SQL. One thread.
class SqliteConnection {
public:
    enum class Access { ReadOnly, ReadWrite };

    // Opens the file; a missing one is made only with ReadWrite. Nothing of the file is read yet.
    static StoreResult<std::unique_ptr<SqliteConnection>> open(const QString& path, Access access);

    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    // Runs a statement with its values bound in order. Statements are prepared once and kept.
    StoreResult<void> run(const QString& sql, const QVariantList& values = {});

    // Runs a query and gives every row to `each`. The query is only valid inside the call.
    StoreResult<void> query(const QString& sql, const std::function<void(const QSqlQuery&)>& each);

    // The first column of the first row; a null QVariant where there is no row.
    StoreResult<QVariant> scalar(const QString& sql);

    // Sets a pragma and reads it back; a pragma that does not hold is an error.
    StoreResult<void> setPragma(const QString& name, const QVariant& value);

    // Runs `body` inside BEGIN IMMEDIATE and COMMIT. Any error, also one at COMMIT, rolls all of it back.
    StoreResult<void> transaction(const std::function<StoreResult<void>()>& body);

private:
    explicit SqliteConnection(QString name);

    QString m_name; // of the Qt SQL connection, ours alone
    QHash<QString, std::shared_ptr<QSqlQuery>> m_prepared;
};

} // namespace platform
