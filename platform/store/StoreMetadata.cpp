#include "platform/store/StoreMetadata.h"

#include "platform/store/ModelArchive.h"

#include <QtCore/QCryptographicHash>

namespace platform {

namespace {

constexpr int applicationId = 0x514C4C54; // "QLLT"
constexpr int fileVersion = 1;            // user_version; a greater one was written by a newer program

const QString modelKey = QStringLiteral("model");
const QString modelHashKey = QStringLiteral("modelHash");
const QString modelVersionKey = QStringLiteral("modelVersion");

std::unexpected<StoreError> notAStore(const QString& message) {
    return std::unexpected(StoreError{StoreError::Kind::NotADatabase, message});
}

StoreResult<void> requireKnownVersion(SqliteConnection& connection) {
    auto version = connection.scalar(QStringLiteral("PRAGMA user_version"));
    if (!version) return std::unexpected(version.error());
    if (version->toInt() <= fileVersion) return {};
    return std::unexpected(
        StoreError{StoreError::Kind::TooNew, QStringLiteral("the store was written by a newer version")});
}

} // namespace

StoreResult<bool> isBlank(SqliteConnection& connection) {
    auto id = connection.scalar(QStringLiteral("PRAGMA application_id"));
    if (!id) return std::unexpected(id.error());
    auto tables = connection.scalar(QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    if (!tables) return std::unexpected(tables.error());
    if (tables->toInt() == 0 && id->toInt() == 0) return true;
    if (id->toInt() != applicationId) return notAStore(QStringLiteral("the file belongs to another program"));
    STORE_TRY(requireKnownVersion(connection));
    return false;
}

StoreResult<StoreMetadata> readMetadata(SqliteConnection& connection) {
    auto blank = isBlank(connection);
    if (!blank) return std::unexpected(blank.error());
    if (*blank) return notAStore(QStringLiteral("the file is empty"));
    QHash<QString, QVariant> values;
    STORE_TRY(connection.query(
        QStringLiteral("SELECT key, value FROM \"_Metadata\""), {},
        [&values](const QSqlQuery& row) { values.insert(row.value(0).toString(), row.value(1)); }));
    const QByteArray archive = values.value(modelKey).toByteArray();
    const QByteArray hash = values.value(modelHashKey).toByteArray();
    auto entities = unarchiveModel(archive);
    if (!entities || hash != QCryptographicHash::hash(archive, QCryptographicHash::Sha256))
        return std::unexpected(
            StoreError{StoreError::Kind::Corrupt, QStringLiteral("the store's model is damaged")});
    return StoreMetadata{values.value(modelVersionKey).toInt(), hash, std::move(*entities)};
}

StoreResult<void> writeMetadata(SqliteConnection& connection, const ManagedObjectModel& model) {
    const QString write = QStringLiteral("INSERT OR REPLACE INTO \"_Metadata\" VALUES (?, ?)");
    STORE_TRY(connection.run(write, {modelKey, archiveModel(model.entities())}));
    STORE_TRY(connection.run(write, {modelHashKey, model.versionHash()}));
    return connection.run(write, {modelVersionKey, model.version()});
}

StoreResult<void> markFile(SqliteConnection& connection) {
    STORE_TRY(connection.run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId)));
    return connection.run(QStringLiteral("PRAGMA user_version = %1").arg(fileVersion));
}

} // namespace platform
