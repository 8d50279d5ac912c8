#include "platform/mirror/MirrorWorker.h"

#include "platform/cloud/RemoteNotifications.h"

#include <QtCore/QDateTime>
#include <QtCore/QRandomGenerator>
#include <QtCore/QThread>

namespace platform {

namespace {

using namespace std::chrono_literals;

// Several changes in a row are sent together.
constexpr auto gatheringTime = 20ms;
constexpr auto firstBackoff = 1s;
constexpr auto longestBackoff = 5min;
constexpr auto firstPoll = 2s;
constexpr auto longestPoll = 30s;
// Of a server that tells of changes: only what it forgot to tell is found this way.
constexpr auto pollBesideNotifications = 60s;

double chance() {
    return QRandomGenerator::global()->generateDouble();
}

WallTime wallNow() {
    return QDateTime::currentMSecsSinceEpoch();
}

} // namespace

MirrorWorker::MirrorWorker(AccountReader readAccount, StoreOpener open, MirroredZones zones,
                           std::function<void(const MirrorStatus&)> onStatus)
    : m_connection(std::move(readAccount),
                   [this, open = std::move(open)](const CloudAccount& account) {
                       return openAndSubscribe(open, account);
                   })
    , m_onStatus(std::move(onStatus))
    , m_backoff(firstBackoff, longestBackoff)
    , m_idle(firstPoll, longestPoll) {
    for (auto& zone : zones)
        m_zones.push_back({std::move(zone), std::nullopt});
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] { run(); });
}

MirrorWorker::~MirrorWorker() = default;

void MirrorWorker::post(Wake wake) {
    if (wake == Wake::LocalChange && m_hasLocalChange.exchange(true)) return;
    QMetaObject::invokeMethod(this, [this, wake] { this->wake(wake); }, Qt::QueuedConnection);
}

void MirrorWorker::postFinish() {
    QMetaObject::invokeMethod(this, [this] { finish(); }, Qt::QueuedConnection);
}

void MirrorWorker::interrupt() {
    m_connection.interrupt();
}

void MirrorWorker::wake(Wake wake) {
    switch (wake) {
    case Wake::LocalChange:
        if (m_status.state != MirrorStatus::State::Waiting) runAfter(gatheringTime);
        return;
    case Wake::RemoteChange:
    case Wake::Foreground:
        return runAfter(0ms);
    case Wake::AccountChange:
        m_backoff.reset();
        return runAfter(0ms);
    }
}

void MirrorWorker::runAfter(std::chrono::milliseconds delay) {
    if (!m_timer.isActive() || m_timer.remainingTimeAsDuration() > delay) m_timer.start(delay);
}

void MirrorWorker::finish() {
    m_timer.stop();
    if (m_hasLocalChange && m_status.state == MirrorStatus::State::UpToDate) run();
    m_timer.stop();
    forgetStore();
    for (auto& zone : m_zones)
        zone.mirrored->close();
    thread()->quit();
}

void MirrorWorker::run() {
    m_timer.stop();
    const auto goesOn = synchronize();
    if (!goesOn) {
        // Nothing is wrong with the cloud where this device's own files were the trouble.
        if (std::holds_alternative<CKError>(goesOn.error())) forgetStore();
        m_hasLocalChange = true;
        m_seenRevision.reset();
        showStatus({MirrorStatus::State::Waiting, goesOn.error()});
        return runAfter(m_backoff.next(chance()));
    }
    m_backoff.reset();
    if (!*goesOn) showStatus({MirrorStatus::State::UpToDate, std::nullopt});
    // What was changed here meanwhile has found the timer at rest.
    runAfter(*goesOn || m_hasLocalChange ? gatheringTime : pollDelay());
}

std::chrono::milliseconds MirrorWorker::pollDelay() {
    if (m_notifications == CloudStore::Notifications::None) return m_idle.next(chance());
    return Backoff(pollBesideNotifications, pollBesideNotifications).next(chance());
}

MirrorResult<bool> MirrorWorker::synchronize() {
    const auto store = openStore();
    if (!store) return std::unexpected(store.error());
    const bool hasLocalChange = m_hasLocalChange.exchange(false);
    auto revision = (*store)->revision();
    if (!revision) return std::unexpected(MirrorError(revision.error()));
    if (!hasLocalChange && m_seenRevision == *revision) return false;
    m_idle.reset();
    bool goesOn = false;
    for (auto& zone : m_zones) {
        const auto zoneGoesOn = synchronize(zone, **store);
        if (!zoneGoesOn) return zoneGoesOn;
        goesOn = goesOn || *zoneGoesOn;
    }
    m_seenRevision = *revision;
    return goesOn;
}

MirrorResult<bool> MirrorWorker::synchronize(Zone& zone, CloudStore& store) {
    const auto storage = zone.mirrored->open();
    if (!storage) return std::unexpected(MirrorError(storage.error()));
    MIRROR_TRY(zone.mirrored->gather());
    if (!zone.mirror)
        zone.mirror.emplace(store, **storage, zone.mirrored->policy(), zone.mirrored->zone(), wallNow,
                            [] { return QUuid::createUuid(); });
    const auto result = zone.mirror->sync();
    if (!result) return std::unexpected(result.error());
    MIRROR_TRY(zone.mirrored->handOn());
    return result->hasMore;
}

MirrorResult<CloudStore*> MirrorWorker::openStore() {
    const auto store = m_connection.store();
    if (!store) return std::unexpected(MirrorError(store.error()));
    return *store;
}

CloudResult<std::unique_ptr<CloudStore>> MirrorWorker::openAndSubscribe(const StoreOpener& open,
                                                                        const CloudAccount& account) {
    // The store before this one is gone.
    for (auto& zone : m_zones)
        zone.mirror.reset();
    m_seenRevision.reset();
    m_notifications = CloudStore::Notifications::None;
    auto store = open(account);
    if (!store || !isRegisteredForRemoteNotifications()) return store;
    const auto notifications = (*store)->subscribe([this] { wake(Wake::RemoteChange); });
    if (!notifications) return std::unexpected(notifications.error());
    m_notifications = *notifications;
    return store;
}

void MirrorWorker::forgetStore() {
    for (auto& zone : m_zones)
        zone.mirror.reset();
    m_connection.close();
}

void MirrorWorker::showStatus(const MirrorStatus& status) {
    const bool isSame =
        status.state == m_status.state && status.error.has_value() == m_status.error.has_value();
    m_status = status;
    if (!isSame) m_onStatus(m_status);
}

} // namespace platform
