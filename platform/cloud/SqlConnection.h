#pragma once

#include "platform/cloud/SqlDialect.h"

#include <QtCore/QHash>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

namespace platform {

// One connection of Qt SQL. One thread.
//
// Statements are prepared once and kept. Their values are bound to ? in order. These words stand for what is
// the database's own: $owner and $now are SqlDialect's, $batch is the relation `batch` with the columns of a
// SqlBatch, and comes after every ?.
class SqlConnection {
public:
    using Each = std::function<void(const QSqlQuery&)>;

    // Not open yet; `driver` is Qt's name of it. The dialect has to outlive the connection.
    SqlConnection(const SqlDialect& dialect, const QString& driver);
    ~SqlConnection();
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;

    QSqlDatabase database() const;

    // The number of rows that were changed.
    CloudResult<qint64> run(const QString& sql, const QVariantList& values = {});
    // Gives every row to `each`; a row is only valid inside the call, which may not run the same query again.
    CloudResult<void> query(const QString& sql, const QVariantList& values, const Each& each);
    // The number of rows that were changed. Nothing is run for a batch without rows.
    CloudResult<qint64> runBatch(const QString& sql, const QVariantList& values, const SqlBatch& batch);
    CloudResult<void> queryBatch(const QString& sql, const QVariantList& values, const SqlBatch& batch,
                                 const Each& each);
    // As run(), for what is not worth preparing, or cannot be.
    CloudResult<void> runOnce(const QString& sql);
    CloudResult<void> queryOnce(const QString& sql, const Each& each);

    // Runs `body` on one state of the database, whatever others write meanwhile.
    CloudResult<void> read(const std::function<CloudResult<void>()>& body);
    // Runs `body` in a transaction. Any error, also one at the commit, rolls it back.
    enum class Ending { Commit, Rollback };
    CloudResult<void> write(const std::function<CloudResult<Ending>()>& body);

    // Whether it is in no state to be used again.
    bool isSpoilt() const { return m_isSpoilt; }

private:
    CloudResult<void> bracket(const QString& begin, const std::function<CloudResult<Ending>()>& body);
    CloudResult<QSqlQuery*> prepared(const QString& sql, const std::vector<SqlBatch::Column>& columns);
    CloudResult<qint64> start(QSqlQuery& query, const QVariantList& values);
    CloudResult<void> walk(QSqlQuery& query, const Each& each);
    std::unexpected<CKError> failure(const QSqlQuery& query) const;

    const SqlDialect& m_dialect;
    QString m_name; // of the Qt SQL connection, ours alone
    QHash<QString, std::shared_ptr<QSqlQuery>> m_prepared;
    bool m_isSpoilt = false;
};

} // namespace platform
