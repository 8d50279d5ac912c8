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
    , m_behind(gatheringTime, longestPoll)
    , m_idle(firstPoll, longestPoll) {
    for (auto& zone : zones)
        m_zones.push_back({std::move(zone), nullptr, std::nullopt});
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
        if (m_status.state != MirrorStatus::State::Waiting) return runAfter(gatheringTime);
        // It is dated now, and not when the cloud can be reached again.
        (void)gatherAll();
        m_hasLocalChange = false;
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
        m_seenRevision.reset();
        showStatus({MirrorStatus::State::Waiting, goesOn.error()});
        return runAfter(m_backoff.next(chance()));
    }
    m_backoff.reset();
    if (*goesOn) return runAfter(m_behind.next(chance()));
    m_behind.reset();
    showStatus({MirrorStatus::State::UpToDate, std::nullopt});
    // What was changed here meanwhile has found the timer at rest.
    runAfter(m_hasLocalChange ? gatheringTime : pollDelay());
}

std::chrono::milliseconds MirrorWorker::pollDelay() {
    if (m_notifications == CloudStore::Notifications::None) return m_idle.next(chance());
    return Backoff(pollBesideNotifications, pollBesideNotifications).next(chance());
}

MirrorResult<bool> MirrorWorker::synchronize() {
    const bool hasLocalChange = m_hasLocalChange.exchange(false);
    auto trouble = gatherAll();
    const auto store = openStore();
    if (!store) return std::unexpected(store.error());
    const auto revision = (*store)->revision();
    if (!revision) return std::unexpected(MirrorError(revision.error()));
    if (!hasLocalChange && !trouble && m_seenRevision == *revision) return false;
    m_idle.reset();
    bool goesOn = false;
    for (auto& zone : m_zones) {
        if (!zone.storage) continue;
        const auto zoneGoesOn = synchronize(zone, **store);
        if (zoneGoesOn) {
            goesOn = goesOn || *zoneGoesOn;
            continue;
        }
        const auto* own = std::get_if<StoreError>(&zoneGoesOn.error());
        if (!own) return zoneGoesOn;
        trouble = *own;
        leave(zone, *own);
    }
    if (trouble) return std::unexpected(MirrorError(*trouble));
    m_seenRevision = *revision;
    return goesOn;
}

std::optional<StoreError> MirrorWorker::gatherAll() {
    std::optional<StoreError> trouble;
    for (auto& zone : m_zones) {
        auto gathered = gather(zone);
        if (gathered) continue;
        trouble = gathered.error();
        leave(zone, *trouble);
    }
    return trouble;
}

StoreResult<void> MirrorWorker::gather(Zone& zone) {
    const auto storage = zone.mirrored->open();
    if (!storage) return std::unexpected(storage.error());
    zone.storage = *storage;
    return zone.mirrored->gather();
}

// The trouble of one zone holds up no other. A file that was replaced has to be opened anew.
void MirrorWorker::leave(Zone& zone, const StoreError& error) {
    if (error.kind == StoreError::Kind::Busy) return;
    zone.mirror.reset();
    zone.storage = nullptr;
    zone.mirrored->close();
}

MirrorResult<bool> MirrorWorker::synchronize(Zone& zone, CloudStore& store) {
    if (!zone.mirror)
        zone.mirror.emplace(store, *zone.storage, zone.mirrored->policy(), zone.mirrored->zone(), wallNow,
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
    if (status == m_status) return;
    m_status = status;
    m_onStatus(m_status);
}

} // namespace platform
