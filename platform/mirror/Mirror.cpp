#include "platform/mirror/Mirror.h"

#include "platform/mirror/MirrorCollection.h"

namespace platform {

namespace {

// Races lost to other devices before the caller is left to try again.
constexpr int mostRaces = 8;

// A clock that went back begins a new interval.
bool isDue(const std::optional<WallTime>& last, WallTime interval, WallTime now) {
    return !last || now < *last || now - *last >= interval;
}

} // namespace

Mirror::Mirror(CloudStore& cloud, MirrorStorage& storage, const MirrorPolicy& policy, QString zone,
               std::function<WallTime()> wall, std::function<QUuid()> random)
    : m_environment{cloud, storage, policy, std::move(zone), std::move(wall), std::move(random)} {}

MirrorResult<SyncResult> Mirror::sync() {
    DeviceIdentity identity(m_environment);
    MIRROR_TRY(identity.ensure());
    if (!m_reportTime) MIRROR_TRY(identity.announce());
    MirrorPull pull(m_environment);
    if (!m_hasTriedParked) MIRROR_TRY(pull.retryParked());
    m_hasTriedParked = true;
    for (int races = 0; races < mostRaces; ++races) {
        const auto hasAll = pull.run();
        if (!hasAll) return std::unexpected(hasAll.error());
        if (!*hasAll) break;
        const auto isSent = pushAll();
        if (!isSent) return std::unexpected(isSent.error());
        if (!*isSent) continue;
        MIRROR_TRY(tidy());
        return SyncResult{pull.hasChanged(), false};
    }
    return SyncResult{pull.hasChanged(), true};
}

MirrorResult<bool> Mirror::pushAll() {
    MirrorPush push(m_environment);
    while (true) {
        const auto outcome = push.run();
        if (!outcome) return std::unexpected(outcome.error());
        if (!*outcome) return true;
        if (**outcome == PushOutcome::DeviceTaken) MIRROR_TRY(DeviceIdentity(m_environment).check());
        if (**outcome != PushOutcome::Committed) return false;
    }
}

MirrorResult<void> Mirror::tidy() {
    MIRROR_TRY(report());
    return collect();
}

MirrorResult<void> Mirror::report() {
    const auto progress = readProgress(m_environment);
    if (!progress) return std::unexpected(progress.error());
    const qint64 revision = progress->position.revision;
    const WallTime now = m_environment.wall();
    if (revision == m_reported || !isDue(m_reportTime, m_environment.policy.reportInterval, now)) return {};
    MIRROR_TRY(DeviceIdentity(m_environment).announce());
    m_reported = revision;
    m_reportTime = now;
    return {};
}

MirrorResult<void> Mirror::collect() {
    const WallTime now = m_environment.wall();
    if (!isDue(m_collectionTime, m_environment.policy.collectionInterval, now)) return {};
    MIRROR_TRY(MirrorCollection(m_environment).run());
    m_collectionTime = now;
    return {};
}

} // namespace platform
