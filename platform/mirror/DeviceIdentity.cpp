#include "platform/mirror/DeviceIdentity.h"

#include <algorithm>

namespace platform {

StoreResult<void> DeviceIdentity::ensure() {
    return withProgress(m_environment, [this](MirrorProgress& progress) -> StoreResult<void> {
        if (progress.device.isNull()) progress.device = m_environment.random();
        return {};
    });
}

MirrorResult<void> DeviceIdentity::check() {
    const auto entries = m_environment.cloud.devices(m_environment.zone);
    if (!entries) return std::unexpected(entries.error());
    const auto progress = readProgress(m_environment);
    if (!progress) return std::unexpected(progress.error());
    const auto mine = std::ranges::find(*entries, progress->device, &DeviceEntry::device);
    if (mine == entries->end() || mine->lastTag.isNull() || mine->lastTag == progress->lastTag) return {};
    MIRROR_TRY(learn(mine->lastTag));
    return announce();
}

MirrorResult<void> DeviceIdentity::announce() {
    const auto progress = readProgress(m_environment);
    if (!progress) return std::unexpected(progress.error());
    const ZonePosition& position = progress->position;
    const qint64 readWhole = position.name.isEmpty() ? position.revision : position.revision - 1;
    MIRROR_TRY(m_environment.cloud.reportDevice(m_environment.zone, progress->device, readWhole));
    return {};
}

StoreResult<void> DeviceIdentity::learn(const QUuid& lastTag) {
    return withProgress(m_environment, [this, &lastTag](MirrorProgress& progress) -> StoreResult<void> {
        const auto& tags = progress.unconfirmedTags;
        if (std::ranges::find(tags, lastTag) == tags.end()) return takeNew(progress);
        progress.lastTag = lastTag;
        return {};
    });
}

StoreResult<void> DeviceIdentity::takeNew(MirrorProgress& progress) {
    const QUuid newDevice = m_environment.random();
    const auto ids = m_environment.storage.all();
    if (!ids) return std::unexpected(ids.error());
    for (const QUuid& id : *ids)
        STORE_TRY(rename(id, progress.device, newDevice));
    progress.device = newDevice;
    progress.lastTag = {};
    progress.unconfirmedTags.clear();
    return {};
}

StoreResult<void> DeviceIdentity::rename(const QUuid& id, const QUuid& device, const QUuid& newDevice) {
    auto object = m_environment.storage.object(id);
    if (!object) return std::unexpected(object.error());
    if (!*object || (*object)->change == 0) return {};
    (*object)->state.renameWrites(device, (*object)->sent, newDevice);
    return m_environment.storage.put(id, **object);
}

} // namespace platform
