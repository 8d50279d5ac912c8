#include "platform/store/StoreMetadata.h"

#include "platform/store/ModelArchive.h"
#include "platform/store/StoreSchema.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QSet>

namespace platform {

namespace {

constexpr int applicationId = 0x514C4C54; // "QLLT"

// Far above what transactions can count to, and far below an overflow.
constexpr qint64 largestRevision = 1LL << 62;

const QString modelKey = QStringLiteral("model");
const QString modelHashKey = QStringLiteral("modelHash");
const QString modelVersionKey = QStringLiteral("modelVersion");

std::unexpected<StoreError> notAStore(const QString& message) {
    return std::unexpected(StoreError{StoreError::Kind::NotADatabase, message});
}

StoreResult<int> fileVersionOf(SqliteConnection& connection) {
    auto version = connection.scalar(QStringLiteral("PRAGMA user_version"));
    if (!version) return std::unexpected(version.error());
    if (version->toInt() <= currentFileVersion) return version->toInt();
    return std::unexpected(
        StoreError{StoreError::Kind::TooNew, QStringLiteral("the store was written by a newer version")});
}

std::unexpected<StoreError> damaged(const QString& message) {
    return std::unexpected(StoreError{StoreError::Kind::Corrupt, message});
}

// The statements of which the file's tables, indexes, views and triggers were made. SQLite keeps them letter
// for letter.
StoreResult<QSet<QString>> schemaOf(SqliteConnection& connection) {
    QSet<QString> statements;
    STORE_TRY(connection.query(
        QStringLiteral(
            "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'"),
        {}, [&statements](const QSqlQuery& row) { statements.insert(row.value(0).toString()); }));
    return statements;
}

QSet<QString> setOf(const QStringList& statements) {
    return {statements.begin(), statements.end()};
}

} // namespace

StoreResult<bool> isBlank(SqliteConnection& connection) {
    auto id = connection.scalar(QStringLiteral("PRAGMA application_id"));
    if (!id) return std::unexpected(id.error());
    auto tables = connection.scalar(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    if (!tables) return std::unexpected(tables.error());
    if (tables->toInt() == 0 && id->toInt() == 0) return true;
    if (id->toInt() != applicationId) return notAStore(QStringLiteral("the file belongs to another program"));
    STORE_TRY(fileVersionOf(connection));
    return false;
}

StoreResult<StoreMetadata> readMetadata(SqliteConnection& connection) {
    auto blank = isBlank(connection);
    if (!blank) return std::unexpected(blank.error());
    if (*blank) return notAStore(QStringLiteral("the file is empty"));
    auto version = fileVersionOf(connection);
    if (!version) return std::unexpected(version.error());
    // A view or a trigger in a table's place could do anything, so nothing is read but tables as we make
    // them.
    auto schema = schemaOf(connection);
    if (!schema) return std::unexpected(schema.error());
    if (!schema->contains(setOf(commonTables(*version))))
        return damaged(QStringLiteral("the store's tables are not as they were made"));
    QHash<QString, QVariant> values;
    STORE_TRY(connection.query(
        QStringLiteral("SELECT key, value FROM \"_Metadata\""), {},
        [&values](const QSqlQuery& row) { values.insert(row.value(0).toString(), row.value(1)); }));
    const QByteArray archive = values.value(modelKey).toByteArray();
    const QByteArray hash = values.value(modelHashKey).toByteArray();
    auto entities = unarchiveModel(archive);
    if (!entities || hash != QCryptographicHash::hash(archive, QCryptographicHash::Sha256))
        return damaged(QStringLiteral("the store's model is damaged"));
    if (*schema != setOf(commonTables(*version) + tablesOf(*entities)))
        return damaged(QStringLiteral("the store's tables are not as they were made"));
    return StoreMetadata{*version, values.value(modelVersionKey).toInt(), hash, std::move(*entities)};
}

StoreResult<void> writeMetadata(SqliteConnection& connection, const ManagedObjectModel& model) {
    const QString write = QStringLiteral("INSERT OR REPLACE INTO \"_Metadata\" VALUES (?, ?)");
    STORE_TRY(connection.run(write, {modelKey, archiveModel(model.entities())}));
    STORE_TRY(connection.run(write, {modelHashKey, model.versionHash()}));
    return connection.run(write, {modelVersionKey, model.version()});
}

StoreResult<void> markFile(SqliteConnection& connection) {
    STORE_TRY(connection.run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId)));
    return connection.run(QStringLiteral("PRAGMA user_version = %1").arg(currentFileVersion));
}

StoreResult<void> upgradeFile(SqliteConnection& connection, const StoreMetadata& metadata) {
    if (metadata.fileVersion == currentFileVersion) return {};
    return connection.transaction([&connection]() -> StoreResult<void> {
        for (const auto& statement : mirrorTables())
            STORE_TRY(connection.run(statement));
        return markFile(connection);
    });
}

StoreResult<qint64> storeRevision(SqliteConnection& connection) {
    auto value = connection.scalar(QStringLiteral("SELECT value FROM \"_Metadata\" WHERE key = 'revision'"));
    if (!value) return std::unexpected(value.error());
    // Transactions only ever count up; anything else was not written by one.
    const qint64 revision = value->toLongLong();
    if (value->typeId() == QMetaType::LongLong && revision >= 0 && revision < largestRevision)
        return revision;
    return damaged(QStringLiteral("the store's revision is no number of a transaction"));
}

StoreResult<void> setStoreRevision(SqliteConnection& connection, qint64 revision) {
    return connection.run(QStringLiteral("UPDATE \"_Metadata\" SET value = ? WHERE key = 'revision'"),
                          {revision});
}

} // namespace platform
