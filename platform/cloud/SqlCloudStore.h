#pragma once

#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/SqlConnection.h"

#include <atomic>

namespace platform {

// The cloud in an SQL database, whichever the dialect speaks to.
class SqlCloudStore : public CloudStore {
public:
    static CloudResult<std::unique_ptr<CloudStore>> open(std::unique_ptr<SqlDialect> dialect,
                                                         Deadline deadline);

    CloudResult<qint64> revision() override;
    CloudResult<ZoneChanges> changes(const QString& zone, const QUuid& epoch, const ZonePosition& position,
                                     const QUuid& tag, int limit) override;
    CloudResult<PushResult> push(const ZonePush& push) override;
    CloudResult<QByteArray> asset(const QByteArray& hash) override;
    CloudResult<void> reportDevice(const QString& zone, const QUuid& device, qint64 revision) override;
    CloudResult<std::vector<DeviceEntry>> devices(const QString& zone) override;
    CloudResult<void> forgetDevice(const QString& zone, const QUuid& device) override;
    CloudResult<bool> hasZone(const QString& zone) override;
    CloudResult<void> saveZone(const QString& zone) override;
    CloudResult<std::vector<ZoneRecord>> records(const QString& zone, const QString& type) override;
    CloudResult<void> saveRecord(const QString& zone, const ZoneRecord& record) override;
    CloudResult<Notifications> subscribe(std::function<void()> observer) override;
    void interrupt() override;

private:
    SqlCloudStore(std::unique_ptr<SqlDialect> dialect, Deadline deadline);

    // Runs `body` on a connection that works, for as long as it loses against other transactions.
    template <typename T>
    CloudResult<T> call(const std::function<CloudResult<T>(SqlConnection&)>& body);
    template <typename T>
    CloudResult<T> attempt(const std::function<CloudResult<T>(SqlConnection&)>& body, CallLimit limit);
    CloudResult<void> connect(CallLimit limit);

    std::unique_ptr<SqlDialect> m_dialect;
    Deadline m_deadline;
    std::unique_ptr<SqlConnection> m_connection; // null after it has broken
    std::function<void()> m_observer;
    std::atomic<bool> m_isInterrupted = false;
};

} // namespace platform
