#include "platform/cloud/SqlConnection.h"

#include "platform/cloud/CloudTry.h"

#include <QtCore/QUuid>

namespace platform {

SqlConnection::SqlConnection(const SqlDialect& dialect, const QString& driver)
    : m_dialect(dialect)
    , m_name(QUuid::createUuid().toString(QUuid::WithoutBraces)) {
    QSqlDatabase::addDatabase(driver, m_name);
}

SqlConnection::~SqlConnection() {
    // Before the prepared statements go: one that finds its connection open frees itself there, a message and
    // its answer for each, from a server that may not answer any more.
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase SqlConnection::database() const {
    return QSqlDatabase::database(m_name, false);
}

std::unexpected<CKError> SqlConnection::failure(const QSqlQuery& query) const {
    return std::unexpected(m_dialect.errorOf(query.lastError()));
}

CloudResult<QSqlQuery*> SqlConnection::prepared(const QString& sql,
                                                const std::vector<SqlBatch::Column>& columns) {
    if (const auto known = m_prepared.value(sql)) return known.get();
    QString expanded = sql;
    expanded.replace(QStringLiteral("$owner"), m_dialect.words().owner);
    expanded.replace(QStringLiteral("$now"), m_dialect.words().now);
    if (!columns.empty()) expanded.replace(QStringLiteral("$batch"), m_dialect.batchSource(columns));
    auto fresh = std::make_shared<QSqlQuery>(database());
    if (!fresh->prepare(expanded)) return failure(*fresh);
    return m_prepared.insert(sql, std::move(fresh))->get();
}

CloudResult<qint64> SqlConnection::start(QSqlQuery& query, const QVariantList& values) {
    for (qsizetype i = 0; i < values.size(); ++i)
        query.bindValue(static_cast<int>(i), values[i]);
    if (query.exec()) return query.numRowsAffected();
    const auto failed = failure(query);
    query.finish();
    return failed;
}

CloudResult<void> SqlConnection::walk(QSqlQuery& query, const Each& each) {
    while (query.next())
        each(query);
    if (!query.lastError().isValid()) {
        query.finish();
        return {};
    }
    const auto failed = failure(query);
    query.finish();
    return failed;
}

CloudResult<qint64> SqlConnection::run(const QString& sql, const QVariantList& values) {
    auto statement = prepared(sql, {});
    if (!statement) return std::unexpected(statement.error());
    auto rows = start(**statement, values);
    (*statement)->finish();
    return rows;
}

CloudResult<void> SqlConnection::query(const QString& sql, const QVariantList& values, const Each& each) {
    auto statement = prepared(sql, {});
    if (!statement) return std::unexpected(statement.error());
    CLOUD_TRY(start(**statement, values));
    return walk(**statement, each);
}

CloudResult<qint64> SqlConnection::runBatch(const QString& sql, const QVariantList& values,
                                            const SqlBatch& batch) {
    if (batch.rows.empty()) return 0;
    auto statement = prepared(sql, batch.columns);
    if (!statement) return std::unexpected(statement.error());
    qint64 all = 0;
    for (const QVariantList& some : m_dialect.batchValues(batch)) {
        auto rows = start(**statement, values + some);
        if (!rows) return rows;
        all += *rows;
        (*statement)->finish();
    }
    return all;
}

CloudResult<void> SqlConnection::queryBatch(const QString& sql, const QVariantList& values,
                                            const SqlBatch& batch, const Each& each) {
    if (batch.rows.empty()) return {};
    auto statement = prepared(sql, batch.columns);
    if (!statement) return std::unexpected(statement.error());
    for (const QVariantList& some : m_dialect.batchValues(batch)) {
        CLOUD_TRY(start(**statement, values + some));
        CLOUD_TRY(walk(**statement, each));
    }
    return {};
}

CloudResult<void> SqlConnection::runOnce(const QString& sql) {
    return queryOnce(sql, [](const QSqlQuery&) {});
}

CloudResult<void> SqlConnection::queryOnce(const QString& sql, const Each& each) {
    QSqlQuery query(database());
    if (!query.exec(sql)) return failure(query);
    return walk(query, each);
}

CloudResult<void> SqlConnection::read(const std::function<CloudResult<void>()>& body) {
    return bracket(m_dialect.words().beginReading, [&body]() -> CloudResult<Ending> {
        CLOUD_TRY(body());
        return Ending::Commit;
    });
}

CloudResult<void> SqlConnection::write(const std::function<CloudResult<Ending>()>& body) {
    return bracket(m_dialect.words().beginWriting, body);
}

CloudResult<void> SqlConnection::bracket(const QString& begin,
                                         const std::function<CloudResult<Ending>()>& body) {
    CLOUD_TRY(runOnce(begin));
    const auto ending = body();
    CloudResult<void> result;
    if (!ending)
        result = std::unexpected(ending.error());
    else if (*ending == Ending::Commit)
        result = runOnce(QStringLiteral("COMMIT"));
    if (result && *ending == Ending::Commit) return {};
    if (!runOnce(QStringLiteral("ROLLBACK"))) m_isSpoilt = true;
    return result;
}

} // namespace platform
