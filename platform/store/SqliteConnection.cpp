#include "platform/store/SqliteConnection.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUuid>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>

namespace platform {

namespace {

// How long a statement waits for another process's lock. The main thread waits with it, so it is short.
constexpr int busyTimeoutMilliseconds = 1000;

// SQLite's primary result codes, from its documentation.
StoreError::Kind kindOfCode(int code) {
    constexpr int readOnlyMoved = 8 | (4 << 8);
    if (code == readOnlyMoved) return StoreError::Kind::Replaced;
    switch (code & 0xFF) {
    case 5:
    case 6:
        return StoreError::Kind::Busy;
    case 8:
        return StoreError::Kind::ReadOnly;
    case 10:
        return StoreError::Kind::InputOutput;
    case 11:
        return StoreError::Kind::Corrupt;
    case 13:
        return StoreError::Kind::Full;
    case 14:
        return StoreError::Kind::CannotOpen;
    case 19:
        return StoreError::Kind::Constraint;
    case 26:
        return StoreError::Kind::NotADatabase;
    default:
        return StoreError::Kind::Other;
    }
}

std::unexpected<StoreError> failure(const QSqlError& error) {
    const auto kind = kindOfCode(error.nativeErrorCode().toInt());
    const QString replaced = QStringLiteral("the library's file was moved or deleted while the program ran");
    return std::unexpected(StoreError{kind, kind == StoreError::Kind::Replaced ? replaced : error.text()});
}

} // namespace

SqliteConnection::SqliteConnection(QString name)
    : m_name(std::move(name)) {}

SqliteConnection::~SqliteConnection() {
    m_prepared.clear(); // Qt wants its queries gone before their connection
    QSqlDatabase::removeDatabase(m_name);
}

StoreResult<std::unique_ptr<SqliteConnection>> SqliteConnection::open(const QString& path, Access access) {
    if (access != Access::ReadWrite && !QFileInfo(path).isFile())
        return std::unexpected(StoreError{StoreError::Kind::CannotOpen, QStringLiteral("no such file")});
    std::unique_ptr<SqliteConnection> connection(
        new SqliteConnection(QUuid::createUuid().toString(QUuid::WithoutBraces)));
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection->m_name);
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeoutMilliseconds);
    if (access == Access::ReadOnly) options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    database.setConnectOptions(options);
    database.setDatabaseName(path);
    if (!database.open()) return failure(database.lastError());
    return connection;
}

StoreResult<std::shared_ptr<QSqlQuery>> SqliteConnection::start(const QString& sql,
                                                                const QVariantList& values) {
    auto& prepared = m_prepared[sql];
    if (!prepared) {
        auto fresh = std::make_shared<QSqlQuery>(QSqlDatabase::database(m_name));
        fresh->setForwardOnly(true);
        if (!fresh->prepare(sql)) {
            m_prepared.remove(sql);
            return failure(fresh->lastError());
        }
        prepared = std::move(fresh);
    }
    for (qsizetype i = 0; i < values.size(); ++i)
        prepared->bindValue(static_cast<int>(i), values[i]);
    if (prepared->exec()) return prepared;
    const QSqlError error = prepared->lastError();
    prepared->finish();
    return failure(error);
}

StoreResult<void> SqliteConnection::run(const QString& sql, const QVariantList& values) {
    return query(sql, values, [](const QSqlQuery&) {});
}

StoreResult<void> SqliteConnection::runOnOneRow(const QString& sql, const QVariantList& values) {
    auto query = start(sql, values);
    if (!query) return std::unexpected(query.error());
    const int rows = (*query)->numRowsAffected();
    (*query)->finish();
    if (rows == 1) return {};
    return std::unexpected(
        StoreError{StoreError::Kind::Corrupt, QStringLiteral("an object is not found where it was stored")});
}

StoreResult<void> SqliteConnection::query(const QString& sql, const QVariantList& values,
                                          const std::function<void(const QSqlQuery&)>& each) {
    auto query = start(sql, values);
    if (!query) return std::unexpected(query.error());
    while ((*query)->next())
        each(**query);
    const QSqlError error = (*query)->lastError();
    (*query)->finish();
    if (error.isValid()) return failure(error);
    return {};
}

StoreResult<QVariant> SqliteConnection::scalar(const QString& sql, const QVariantList& values) {
    std::optional<QVariant> first;
    STORE_TRY(query(sql, values, [&first](const QSqlQuery& row) {
        if (!first) first = row.value(0);
    }));
    return first.value_or(QVariant());
}

StoreResult<void> SqliteConnection::setPragma(const QString& name, const QVariant& value) {
    const QString read = QStringLiteral("PRAGMA %1").arg(name);
    auto set = scalar(QStringLiteral("%1 = %2").arg(read, value.toString()));
    if (!set) return std::unexpected(set.error());
    auto held = scalar(read);
    if (!held) return std::unexpected(held.error());
    if (held->toString().compare(value.toString(), Qt::CaseInsensitive) != 0)
        return std::unexpected(
            StoreError{StoreError::Kind::Other, QStringLiteral("%1 stayed %2").arg(read, held->toString())});
    return {};
}

StoreResult<void> SqliteConnection::transaction(const std::function<StoreResult<void>()>& body) {
    return bracket(QStringLiteral("BEGIN IMMEDIATE"), body);
}

StoreResult<void> SqliteConnection::readTransaction(const std::function<StoreResult<void>()>& body) {
    return bracket(QStringLiteral("BEGIN"), body);
}

StoreResult<void> SqliteConnection::bracket(const QString& begin,
                                            const std::function<StoreResult<void>()>& body) {
    STORE_TRY(run(begin));
    auto result = body();
    if (result) result = run(QStringLiteral("COMMIT"));
    if (!result) {
        // SQLite has already rolled back after some errors; then this fails and there is nothing to undo.
        (void)run(QStringLiteral("ROLLBACK"));
    }
    return result;
}

StoreResult<void> SqliteConnection::setPatience(Patience patience) {
    return setPragma(QStringLiteral("busy_timeout"),
                     patience == Patience::Normal ? busyTimeoutMilliseconds : 0);
}

} // namespace platform
