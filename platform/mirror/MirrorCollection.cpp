#include "platform/mirror/MirrorCollection.h"

#include <algorithm>

namespace platform {

MirrorResult<void> MirrorCollection::run() {
    const auto upTo = readByAll();
    if (!upTo) return std::unexpected(upTo.error());
    Plan plan;
    MIRROR_TRY(m_environment.storage.transaction([&]() -> StoreResult<void> {
        auto planned = this->plan(*upTo);
        if (!planned) return std::unexpected(planned.error());
        plan = std::move(*planned);
        return {};
    }));
    if (plan.collected.empty()) return {};
    // Where others have written meanwhile, there is another day.
    MIRROR_TRY(MirrorPush(m_environment).collect(plan.kept, plan.collected, plan.horizon));
    return {};
}

MirrorResult<qint64> MirrorCollection::readByAll() {
    const auto progress = readProgress(m_environment);
    if (!progress) return std::unexpected(progress.error());
    const auto devices = m_environment.cloud.devices(m_environment.zone);
    if (!devices) return std::unexpected(devices.error());
    qint64 revision = progress->position.revision;
    for (const DeviceEntry& entry : *devices) {
        if (entry.device == progress->device) continue;
        if (entry.secondsSilent > m_environment.policy.secondsOfSilence)
            MIRROR_TRY(m_environment.cloud.forgetDevice(m_environment.zone, entry.device));
        else
            revision = std::min(revision, entry.revision);
    }
    return revision;
}

StoreResult<MirrorCollection::Plan> MirrorCollection::plan(qint64 upTo) {
    Plan plan;
    const auto outbox = m_environment.storage.outbox(1);
    if (!outbox) return std::unexpected(outbox.error());
    if (!outbox->empty()) return plan;
    const auto candidates = m_environment.storage.deadUpTo(upTo);
    if (!candidates) return std::unexpected(candidates.error());
    const auto horizon = belowWhatStays(*candidates, upTo);
    if (!horizon) return std::unexpected(horizon.error());
    const auto dead = m_environment.storage.deadUpTo(*horizon);
    if (!dead) return std::unexpected(dead.error());
    plan.horizon = *horizon;
    for (const QUuid& id : *dead) {
        const auto isShown = m_environment.storage.isShown(id);
        if (!isShown) return std::unexpected(isShown.error());
        (*isShown ? plan.kept : plan.collected).push_back(id);
    }
    return plan;
}

// Below the first record that has to stay where it is: young tombstones, what cannot be read, and whatever is
// too much for one push.
StoreResult<qint64> MirrorCollection::belowWhatStays(const std::vector<QUuid>& dead, qint64 upTo) {
    auto looked = m_environment.storage.parked();
    if (!looked) return std::unexpected(looked.error());
    looked->insert(looked->end(), dead.begin(), dead.end());
    std::vector<qint64> revisions;
    for (const QUuid& id : *looked) {
        const auto object = m_environment.storage.object(id);
        if (!object) return std::unexpected(object.error());
        if (!*object) continue;
        revisions.push_back((*object)->revision);
        if (!(*object)->parked.isEmpty() || isYoung((*object)->state))
            upTo = std::min(upTo, (*object)->revision - 1);
    }
    const auto limit = m_environment.policy.pushLimit;
    if (std::ssize(revisions) <= limit) return upTo;
    std::ranges::sort(revisions);
    // Records of one push have one revision; they are no more than go into another.
    const qint64 first = revisions.front();
    return std::min(upTo, std::max(first, revisions[limit] - 1));
}

// A time far ahead of the wall is somebody's wrong clock and no reason to wait.
bool MirrorCollection::isYoung(const ObjectState& state) const {
    const WallTime age = m_environment.wall() - HybridClock::toWall(state.deletionTime);
    const WallTime grace = m_environment.policy.tombstoneAge;
    return age < grace && age > -grace;
}

} // namespace platform
