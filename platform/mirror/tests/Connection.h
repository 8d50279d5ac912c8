#pragma once

#include "platform/mirror/tests/Simulation.h"

namespace simulation {

// One device's way to the server, with all that can happen on it.
class Connection : public platform::CloudStore {
public:
    Connection(Simulation& simulation, Device& device)
        : m_simulation(simulation)
        , m_device(device) {}

    platform::CloudResult<qint64> revision() override;
    platform::CloudResult<platform::ZoneChanges> changes(const QString& zone, const QUuid& epoch,
                                                         const platform::ZonePosition& position,
                                                         const QUuid& tag, int limit) override;
    platform::CloudResult<platform::PushResult> push(const platform::ZonePush& push) override;
    platform::CloudResult<QByteArray> asset(const QByteArray& hash) override;
    platform::CloudResult<void> reportDevice(const QString& zone, const QUuid& device,
                                             qint64 revision) override;
    platform::CloudResult<std::vector<platform::DeviceEntry>> devices(const QString& zone) override;
    platform::CloudResult<void> forgetDevice(const QString& zone, const QUuid& device) override;
    platform::CloudResult<bool> hasZone(const QString& zone) override;
    platform::CloudResult<void> saveZone(const QString& zone) override;
    platform::CloudResult<std::vector<platform::ZoneRecord>> records(const QString& zone,
                                                                     const QString& type) override;
    platform::CloudResult<void> saveRecord(const QString& zone, const platform::ZoneRecord& record) override;
    platform::CloudResult<Notifications> subscribe(std::function<void()> observer) override;

private:
    template <typename T, typename Effect>
    platform::CloudResult<T> call(Effect effect);
    const Server& answering() const;
    void noteArrivals(const Server& server, const platform::ZoneChanges& page);

    Simulation& m_simulation;
    Device& m_device;
    std::vector<platform::ZoneChanges> m_oldPages;
};

} // namespace simulation
