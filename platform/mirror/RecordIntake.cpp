#include "platform/mirror/RecordIntake.h"

#include "platform/mirror/RecordCodec.h"

#include <algorithm>

namespace platform {

namespace {

// Whether the value decides nothing, as a later plain one stands already.
bool isSuperseded(const Register& theirs, const Register& mine) {
    return theirs.seen.isEmpty() && mine.stamp > theirs.stamp;
}

} // namespace

RecordIntake::RecordIntake(const MirrorEnvironment& environment, MirrorProgress& progress,
                           const AssetShelf& assets)
    : m_environment(environment)
    , m_progress(progress)
    , m_assets(assets) {}

StoreResult<void> RecordIntake::take(const ZoneRecord& record) {
    const QUuid id = QUuid::fromString(record.name);
    if (id.isNull()) return {}; // nobody's object
    auto found = m_environment.storage.object(id);
    if (!found) return std::unexpected(found.error());
    MirroredObject object = std::move(*found).value_or(MirroredObject());
    auto theirs = decodeState(record.payload);
    if (!theirs || !fillIn(*theirs, object)) return park(id, std::move(object), record);
    if (!m_missing.isEmpty()) return {};
    return join(id, std::move(object), *theirs, record.revision);
}

StoreResult<void> RecordIntake::park(const QUuid& id, MirroredObject object, const ZoneRecord& record) {
    object.parked = record.payload;
    object.revision = record.revision;
    object.reading = m_progress.reading;
    return m_environment.storage.put(id, object);
}

StoreResult<void> RecordIntake::join(const QUuid& id, MirroredObject object, const ObjectState& theirs,
                                     qint64 revision) {
    HybridClock clock(m_progress.clock);
    clock.observe(theirs.latest().time, m_environment.wall());
    m_progress.clock = clock.last();
    const StateMerge merge = mergeStates(object.state, object.bases, theirs,
                                         [this](std::uint64_t atLeast) { return newStamp(atLeast); });
    m_hasChanged = m_hasChanged || merge.state != object.state;
    object.state = merge.state;
    object.bases = basesOf(merge.state, theirs);
    object.revision = revision;
    object.reading = m_progress.reading;
    object.sent = std::max({object.sent, theirs.writes().timeOf(m_progress.device),
                            theirs.deletionSeen.timeOf(m_progress.device)});
    object.parked.clear();
    if (merge.state == theirs)
        object.change = 0;
    else if (object.change == 0)
        STORE_TRY(markChanged(object));
    STORE_TRY(m_environment.storage.put(id, object));
    return keepLostTexts(id, merge);
}

// In a dead object both texts were deleted by somebody who had seen them.
StoreResult<void> RecordIntake::keepLostTexts(const QUuid& id, const StateMerge& merge) {
    if (!merge.state.isAlive()) return {};
    for (const LostText& lost : merge.lost)
        STORE_TRY(keep({id, merge.state, lost.property, lost.value, lost.stamp}));
    return {};
}

StoreResult<void> RecordIntake::keep(const DisplacedText& text) {
    auto copy = m_environment.policy.conflictCopy(text);
    if (!copy) return {};
    const auto existing = m_environment.storage.object(copy->first);
    if (!existing) return std::unexpected(existing.error());
    if (*existing) return {};
    MirroredObject object;
    object.state = std::move(copy->second);
    STORE_TRY(markChanged(object));
    return m_environment.storage.put(copy->first, object);
}

StoreResult<void> RecordIntake::markChanged(MirroredObject& object) {
    const auto change = m_environment.storage.nextChange();
    if (!change) return std::unexpected(change.error());
    object.change = *change;
    return {};
}

// Puts values in the place of references. False where one cannot be had.
bool RecordIntake::fillIn(ObjectState& theirs, const MirroredObject& object) {
    for (auto& [property, entry] : theirs.registers) {
        const auto hash = referredAsset(*entry.value);
        if (!hash) continue;
        if (m_assets.lost.contains(*hash)) return false;
        if (const auto value = valueFor(property, entry, *hash, object)) entry.value = *value;
    }
    return true;
}

std::optional<QCborValue> RecordIntake::valueFor(const QString& property, const Register& theirs,
                                                 const QByteArray& hash, const MirroredObject& object) {
    for (const auto* known : {&object.state.registers, &object.bases}) {
        const auto mine = known->find(property);
        if (mine == known->end()) continue;
        if (mine->second.stamp == theirs.stamp) return mine->second.value;
        if (isSuperseded(theirs, mine->second)) return std::nullopt;
    }
    const auto fetched = m_assets.values.find(hash);
    if (fetched != m_assets.values.end()) return fetched->second;
    m_missing.insert(hash);
    return std::nullopt;
}

Stamp RecordIntake::newStamp(std::uint64_t atLeast) {
    HybridClock clock(m_progress.clock);
    const Stamp stamp{clock.next(m_environment.wall(), atLeast), m_progress.device};
    m_progress.clock = clock.last();
    return stamp;
}

} // namespace platform
