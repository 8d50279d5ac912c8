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
    // Existing is ReadWrite for a file that must be there: opening it also undoes what a crash left half
    // done.
    enum class Access { ReadOnly, Existing, ReadWrite };

    // Opens the file; a missing one is made only with ReadWrite. Nothing of the file is read yet.
    static StoreResult<std::unique_ptr<SqliteConnection>> open(const QString& path, Access access);

    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    // Runs a statement with its values bound in order. Statements are prepared once and kept.
    StoreResult<void> run(const QString& sql, const QVariantList& values = {});

    // As run(), for a statement that has to change exactly one row; Corrupt where it does not.
    StoreResult<void> runOnOneRow(const QString& sql, const QVariantList& values);

    // Runs a query and gives every row to `each`. The row is only valid inside the call, which may not run
    // the same query again.
    StoreResult<void> query(const QString& sql, const QVariantList& values,
                            const std::function<void(const QSqlQuery&)>& each);

    // The first column of the first row; a null QVariant where there is no row.
    StoreResult<QVariant> scalar(const QString& sql, const QVariantList& values = {});

    // Sets a pragma and reads it back; a pragma that does not hold is an error.
    StoreResult<void> setPragma(const QString& name, const QVariant& value);

    // Runs `body` inside BEGIN IMMEDIATE and COMMIT. Any error, also one at COMMIT, rolls all of it back.
    StoreResult<void> transaction(const std::function<StoreResult<void>()>& body);

    // Runs `body` on one state of the file, whatever others write meanwhile.
    StoreResult<void> readTransaction(const std::function<StoreResult<void>()>& body);

    // How long a statement waits for another connection's lock before it fails with Busy.
    enum class Patience { Normal, None };
    StoreResult<void> setPatience(Patience patience);

private:
    explicit SqliteConnection(QString name);

    StoreResult<void> bracket(const QString& begin, const std::function<StoreResult<void>()>& body);
    // A statement of our own with its values bound, run up to its first row.
    StoreResult<std::shared_ptr<QSqlQuery>> start(const QString& sql, const QVariantList& values);

    QString m_name; // of the Qt SQL connection, ours alone
    QHash<QString, std::shared_ptr<QSqlQuery>> m_prepared;
};

} // namespace platform
