#include "platform/mirror/MirrorCapture.h"

#include "platform/mirror/CapturedSave.h"
#include "platform/mirror/MirrorView.h"

namespace platform {

MirrorCapture::MirrorCapture(std::shared_ptr<const ManagedObjectModel> model, std::function<WallTime()> wall,
                             const QUuid& device)
    : m_shape(std::move(model))
    , m_wall(std::move(wall))
    , m_device(device) {}

StoreResult<void> MirrorCapture::begin(SqliteConnection& connection) {
    MirrorTable table(connection);
    auto latest = table.clock();
    if (!latest) return std::unexpected(latest.error());
    if (latest->device.isNull()) STORE_TRY(table.setDevice(m_device));
    STORE_TRY(seed(connection));
    return adoptModel(connection);
}

StoreResult<void> MirrorCapture::seed(SqliteConnection& connection) {
    auto latest = MirrorTable(connection).clock();
    if (!latest) return std::unexpected(latest.error());
    CapturedSave save(connection, m_shape, *latest, m_wall());
    for (const auto& shape : m_shape.entities()) {
        auto ids = identities(
            connection,
            QStringLiteral("SELECT \"_id\" FROM %1 WHERE \"_id\" NOT IN (SELECT id FROM \"_Mirror\")")
                .arg(shape.table),
            {});
        if (!ids) return std::unexpected(ids.error());
        for (const auto& id : *ids)
            STORE_TRY(save.seed(shape, id));
    }
    return save.finish();
}

// What lay unknown in the states may have a place in the rows of another model.
StoreResult<void> MirrorCapture::adoptModel(SqliteConnection& connection) {
    MirrorTable table(connection);
    MirrorView view(connection, m_shape);
    STORE_TRY(view.settleNoted());
    const QByteArray hash = m_shape.model().versionHash();
    auto before = table.modelHash();
    if (!before) return std::unexpected(before.error());
    if (*before == hash) return {};
    if (!before->isEmpty()) {
        auto ids = table.all();
        if (!ids) return std::unexpected(ids.error());
        STORE_TRY(view.refresh(*ids));
    }
    return table.setModelHash(hash);
}

StoreResult<void> MirrorCapture::capture(SqliteConnection& connection, const StoreChanges& changes) {
    auto latest = MirrorTable(connection).clock();
    if (!latest) return std::unexpected(latest.error());
    if (latest->device.isNull()) {
        // The file could not be written when it was opened.
        STORE_TRY(begin(connection));
        return capture(connection, changes);
    }
    CapturedSave save(connection, m_shape, *latest, m_wall());
    STORE_TRY(save.capture(changes));
    return save.finish();
}

} // namespace platform
