#pragma once

#include "platform/mirror/tests/SimulatedServer.h"

namespace simulation {

// A way to the simulated server on which nothing happens.
class ServedDirectly : public platform::CloudStore {
public:
    explicit ServedDirectly(Server& server)
        : m_server(server) {}

    platform::CloudResult<qint64> revision() override { return m_server.revision; }

    platform::CloudResult<platform::ZoneChanges> changes(const QString&, const QUuid& epoch,
                                                         const platform::ZonePosition& position,
                                                         const QUuid& tag, int limit) override {
        return m_server.changes(epoch, position, tag, limit);
    }

    platform::CloudResult<platform::PushResult> push(const platform::ZonePush& push) override {
        std::map<QString, Edits> edits;
        for (const auto& record : push.records)
            edits[record.name] = {};
        return m_server.push(push, edits, 0);
    }

    platform::CloudResult<QByteArray> asset(const QByteArray& hash) override {
        const auto found = m_server.assets.find(hash);
        if (found != m_server.assets.end()) return found->second;
        return std::unexpected(platform::CKError{platform::CKError::Code::UnknownItem, {}});
    }

    platform::CloudResult<void> reportDevice(const QString&, const QUuid& device, qint64 revision) override {
        m_server.devices[device].revision = revision;
        return {};
    }

    platform::CloudResult<std::vector<platform::DeviceEntry>> devices(const QString&) override {
        std::vector<platform::DeviceEntry> entries;
        for (const auto& [id, device] : m_server.devices)
            entries.push_back({id, device.revision, 0, device.lastTag});
        return entries;
    }

    platform::CloudResult<void> forgetDevice(const QString&, const QUuid&) override { return {}; }

    platform::CloudResult<bool> hasZone(const QString&) override { return true; }

    platform::CloudResult<void> saveZone(const QString&) override { return {}; }

    platform::CloudResult<std::vector<platform::ZoneRecord>> records(const QString&,
                                                                     const QString&) override {
        return {};
    }

    platform::CloudResult<void> saveRecord(const QString&, const platform::ZoneRecord&) override {
        return {};
    }

    platform::CloudResult<Notifications> subscribe(std::function<void()>) override {
        return Notifications::None;
    }

private:
    Server& m_server;
};

} // namespace simulation
