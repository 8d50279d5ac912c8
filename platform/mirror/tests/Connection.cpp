#include "platform/mirror/tests/Connection.h"

namespace simulation {

using namespace platform;

template <typename T, typename Effect>
CloudResult<T> Connection::call(Effect effect) {
    auto& random = m_simulation.m_random;
    m_simulation.interrupt();
    m_simulation.mayCrash();
    const bool isStormy = m_simulation.m_storm > 0 && m_simulation.m_storm-- > 0;
    if (!m_device.isConnected || isStormy || random.perMille(m_simulation.m_plan.failures))
        return std::unexpected(CKError{CKError::Code::ServiceUnavailable, {}});
    CloudResult<T> result = effect();
    m_simulation.interrupt();
    m_simulation.mayCrash();
    if (random.perMille(m_simulation.m_plan.failures))
        return std::unexpected(CKError{CKError::Code::NetworkFailure, {}});
    return result;
}

// Now and then a replica that lags behind.
const Server& Connection::answering() const {
    const auto& backups = m_simulation.m_backups;
    const bool lags = !backups.empty() && backups.back().horizon == m_simulation.m_server.horizon &&
                      m_simulation.m_random.perMille(m_simulation.m_plan.delays / 4);
    return lags ? backups.back() : m_simulation.m_server;
}

void Connection::noteArrivals(const Server& server, const ZoneChanges& page) {
    m_device.storage.arrivals.clear();
    for (const ZoneRecord& record : page.records)
        m_device.storage.arrivals[QUuid::fromString(record.name)] = {record.revision,
                                                                     server.rows.at(record.name).edits};
}

CloudResult<qint64> Connection::revision() {
    return call<qint64>([this]() -> CloudResult<qint64> { return m_simulation.m_server.revision; });
}

CloudResult<ZoneChanges> Connection::changes(const QString&, const QUuid& epoch, const ZonePosition& position,
                                             const QUuid& tag, int limit) {
    return call<ZoneChanges>([&]() -> CloudResult<ZoneChanges> {
        if (!m_oldPages.empty() && m_simulation.m_random.perMille(m_simulation.m_plan.delays / 4)) {
            const ZoneChanges old = m_simulation.m_random.of(m_oldPages);
            if (old.position <= position && old.head.revision >= position.revision) return old;
        }
        const Server& server = answering();
        ZoneChanges page = server.changes(epoch, position, tag, 1 + m_simulation.m_random.below(limit));
        noteArrivals(server, page);
        m_oldPages.push_back(page);
        return page;
    });
}

CloudResult<PushResult> Connection::push(const ZonePush& push) {
    const Simulation::DelayedPush sent{push, m_simulation.editsOf(m_device, push)};
    m_device.storage.arrivals.clear();
    return call<PushResult>([&]() -> CloudResult<PushResult> {
        const bool isHeldUp = m_simulation.m_random.perMille(m_simulation.m_plan.delays);
        if (isHeldUp || m_simulation.m_random.perMille(m_simulation.m_plan.delays))
            m_simulation.m_delayed.push_back(sent);
        if (isHeldUp) return std::unexpected(CKError{CKError::Code::NetworkFailure, {}});
        return m_simulation.pushTo(sent);
    });
}

CloudResult<QByteArray> Connection::asset(const QByteArray& hash) {
    return call<QByteArray>([&]() -> CloudResult<QByteArray> {
        const auto found = m_simulation.m_server.assets.find(hash);
        if (found == m_simulation.m_server.assets.end())
            return std::unexpected(CKError{CKError::Code::UnknownItem, {}});
        return found->second;
    });
}

CloudResult<void> Connection::reportDevice(const QString&, const QUuid& device, qint64 revision) {
    return call<void>([&]() -> CloudResult<void> {
        auto& entry = m_simulation.m_server.devices[device];
        entry.revision = revision;
        entry.heardAt = m_simulation.m_now;
        return {};
    });
}

CloudResult<std::vector<DeviceEntry>> Connection::devices(const QString&) {
    return call<std::vector<DeviceEntry>>([&]() -> CloudResult<std::vector<DeviceEntry>> {
        std::vector<DeviceEntry> entries;
        for (const auto& [id, device] : m_simulation.m_server.devices)
            entries.push_back(
                {id, device.revision, (m_simulation.m_now - device.heardAt) / 1000, device.lastTag});
        return entries;
    });
}

CloudResult<void> Connection::forgetDevice(const QString&, const QUuid& device) {
    return call<void>([&]() -> CloudResult<void> {
        m_simulation.m_server.devices.erase(device);
        return {};
    });
}

CloudResult<bool> Connection::hasZone(const QString&) {
    return true;
}

CloudResult<void> Connection::saveZone(const QString&) {
    return {};
}

CloudResult<std::vector<ZoneRecord>> Connection::records(const QString&, const QString&) {
    return {};
}

CloudResult<void> Connection::saveRecord(const QString&, const ZoneRecord&) {
    return {};
}

CloudResult<CloudStore::Notifications> Connection::subscribe(std::function<void()>) {
    return Notifications::None;
}

} // namespace simulation
