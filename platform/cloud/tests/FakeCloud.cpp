#include "platform/cloud/tests/FakeCloud.h"

namespace platform {

namespace {

std::unexpected<CKError> notFaked() {
    return std::unexpected(CKError{CKError::Code::InternalError, QStringLiteral("not part of the fake")});
}

} // namespace

class FakeCloudStore : public CloudStore {
public:
    explicit FakeCloudStore(std::shared_ptr<FakeCloud> cloud)
        : m_cloud(std::move(cloud)) {}

    CloudResult<bool> hasZone(const QString& zone) override {
        if (auto entered = m_cloud->enter(QStringLiteral("hasZone")); !entered)
            return std::unexpected(entered.error());
        const std::lock_guard lock(m_cloud->m_mutex);
        return m_cloud->m_zones.contains(zone);
    }

    CloudResult<void> saveZone(const QString& zone) override {
        if (auto entered = m_cloud->enter(QStringLiteral("saveZone")); !entered) return entered;
        m_cloud->addZone(zone);
        return {};
    }

    CloudResult<std::vector<ZoneRecord>> records(const QString& zone, const QString& type) override {
        if (auto entered = m_cloud->enter(QStringLiteral("records")); !entered)
            return std::unexpected(entered.error());
        return m_cloud->records(zone, type);
    }

    CloudResult<void> saveRecord(const QString& zone, const ZoneRecord& record) override {
        if (auto entered = m_cloud->enter(QStringLiteral("saveRecord")); !entered) return entered;
        m_cloud->add(zone, record);
        return {};
    }

    CloudResult<qint64> revision() override { return notFaked(); }

    CloudResult<ZoneChanges> changes(const QString&, const QUuid&, const ZonePosition&, const QUuid&,
                                     int) override {
        return notFaked();
    }

    CloudResult<PushResult> push(const ZonePush&) override { return notFaked(); }

    CloudResult<QByteArray> asset(const QByteArray&) override { return notFaked(); }

    CloudResult<void> reportDevice(const QString&, const QUuid&, qint64) override { return notFaked(); }

    CloudResult<std::vector<DeviceEntry>> devices(const QString&) override { return notFaked(); }

    CloudResult<void> forgetDevice(const QString&, const QUuid&) override { return notFaked(); }

    CloudResult<Notifications> subscribe(std::function<void()>) override { return notFaked(); }

    void interrupt() override { m_cloud->interrupt(); }

private:
    std::shared_ptr<FakeCloud> m_cloud;
};

CloudResult<std::unique_ptr<CloudStore>> FakeCloud::open() {
    if (auto entered = enter(QStringLiteral("open")); !entered) return std::unexpected(entered.error());
    return std::make_unique<FakeCloudStore>(shared_from_this());
}

AccountReader FakeCloud::signedIn() {
    return [] { return CloudAccount(FileAccount{QStringLiteral("/cloud")}); };
}

StoreOpener FakeCloud::opener() {
    return [self = shared_from_this()](const CloudAccount&) { return self->open(); };
}

void FakeCloud::fail(const QString& call, CKError::Code code) {
    const std::lock_guard lock(m_mutex);
    m_failures[call] = code;
}

void FakeCloud::mend(const QString& call) {
    const std::lock_guard lock(m_mutex);
    m_failures.erase(call);
}

std::future<void> FakeCloud::hold(const QString& call) {
    const std::lock_guard lock(m_mutex);
    m_held = call;
    return m_isHeld.get_future();
}

void FakeCloud::interrupt() {
    const std::lock_guard lock(m_mutex);
    m_isInterrupted = true;
    m_interruption.notify_all();
}

QStringList FakeCloud::calls() const {
    const std::lock_guard lock(m_mutex);
    return m_calls;
}

void FakeCloud::addZone(const QString& zone) {
    const std::lock_guard lock(m_mutex);
    m_zones[zone];
}

void FakeCloud::add(const QString& zone, const ZoneRecord& record) {
    const std::lock_guard lock(m_mutex);
    m_zones[zone][record.name] = record;
}

std::vector<ZoneRecord> FakeCloud::records(const QString& zone, const QString& type) const {
    const std::lock_guard lock(m_mutex);
    std::vector<ZoneRecord> found;
    if (const auto records = m_zones.find(zone); records != m_zones.end())
        for (const auto& [name, record] : records->second)
            if (record.type == type) found.push_back(record);
    return found;
}

CloudResult<void> FakeCloud::enter(const QString& call) {
    std::unique_lock lock(m_mutex);
    m_calls += call;
    if (m_held == call) {
        m_isHeld.set_value();
        m_interruption.wait(lock, [this] { return m_isInterrupted; });
        return std::unexpected(CKError{CKError::Code::NetworkFailure, QStringLiteral("interrupted")});
    }
    const auto failure = m_failures.find(call);
    if (failure == m_failures.end()) return {};
    return std::unexpected(CKError{failure->second, QStringLiteral("as the test wants it")});
}

} // namespace platform
