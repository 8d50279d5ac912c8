#include "platform/mirror/SqliteMirrorStorage.h"

#include "platform/foundation/FatalError.h"
#include "platform/store/StoreMetadata.h"
#include "platform/store/StorePragmas.h"

namespace platform {

SqliteMirrorStorage::SqliteMirrorStorage(std::unique_ptr<SqliteConnection> connection,
                                         std::shared_ptr<const ManagedObjectModel> model)
    : m_connection(std::move(connection))
    , m_shape(std::move(model))
    , m_table(*m_connection) {}

StoreResult<std::unique_ptr<SqliteMirrorStorage>>
SqliteMirrorStorage::open(const QString& path, std::shared_ptr<const ManagedObjectModel> model) {
    auto connection = SqliteConnection::open(path, SqliteConnection::Access::Existing);
    if (!connection) return std::unexpected(connection.error());
    STORE_TRY(setStorePragmas(**connection));
    auto metadata = readMetadata(**connection);
    if (!metadata) return std::unexpected(metadata.error());
    if (metadata->fileVersion != currentFileVersion || metadata->modelHash != model->versionHash())
        return std::unexpected(
            StoreError{StoreError::Kind::Incompatible, QStringLiteral("the store has another form")});
    return std::unique_ptr<SqliteMirrorStorage>(
        new SqliteMirrorStorage(std::move(*connection), std::move(model)));
}

StoreResult<void> SqliteMirrorStorage::transaction(const std::function<StoreResult<void>()>& body) {
    if (m_view) fatalError("Transactions of a mirror do not nest");
    auto result = m_connection->transaction([&]() -> StoreResult<void> {
        m_view.emplace(*m_connection, m_shape);
        STORE_TRY(m_view->settleNoted());
        return body();
    });
    m_view.reset();
    return result;
}

MirrorView& SqliteMirrorStorage::view() {
    if (!m_view) fatalError("A mirror's objects are read and written inside transactions");
    return *m_view;
}

StoreResult<MirrorProgress> SqliteMirrorStorage::progress() {
    return m_table.progress();
}

StoreResult<void> SqliteMirrorStorage::setProgress(const MirrorProgress& progress) {
    return m_table.setProgress(progress);
}

StoreResult<std::optional<MirroredObject>> SqliteMirrorStorage::object(const QUuid& id) {
    return view().object(id);
}

StoreResult<void> SqliteMirrorStorage::put(const QUuid& id, const MirroredObject& object) {
    return view().put(id, object);
}

StoreResult<void> SqliteMirrorStorage::remove(const QUuid& id) {
    return view().remove(id);
}

StoreResult<bool> SqliteMirrorStorage::isShown(const QUuid& id) {
    return view().isShown(id);
}

StoreResult<qint64> SqliteMirrorStorage::shownCount() {
    qint64 count = 0;
    for (const auto& shape : m_shape.entities()) {
        auto rows = m_connection->scalar(QStringLiteral("SELECT count(*) FROM ") + shape.table);
        if (!rows) return std::unexpected(rows.error());
        count += rows->toLongLong();
    }
    return count;
}

StoreResult<qint64> SqliteMirrorStorage::nextChange() {
    return m_table.nextChanges(1);
}

StoreResult<std::vector<QUuid>> SqliteMirrorStorage::outbox(qsizetype limit) {
    return m_table.select(QStringLiteral("WHERE change > 0 AND parked IS NULL ORDER BY change LIMIT ?"),
                          {static_cast<qint64>(limit)});
}

StoreResult<std::vector<QUuid>> SqliteMirrorStorage::notMetBy(qint64 reading) {
    return m_table.select(QStringLiteral("WHERE change = 0 AND revision > 0 AND reading < ? ORDER BY id"),
                          {reading});
}

StoreResult<std::vector<QUuid>> SqliteMirrorStorage::deadUpTo(qint64 upTo) {
    return m_table.select(
        QStringLiteral("WHERE dead > 0 AND change = 0 AND revision BETWEEN 1 AND ? ORDER BY revision"),
        {upTo});
}

StoreResult<std::vector<QUuid>> SqliteMirrorStorage::parked() {
    return m_table.select(QStringLiteral("WHERE parked IS NOT NULL ORDER BY id"));
}

StoreResult<std::vector<QUuid>> SqliteMirrorStorage::all() {
    return m_table.all();
}

} // namespace platform
