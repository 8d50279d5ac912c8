#pragma once

#include "platform/mirror/MirrorEnvironment.h"
#include "platform/mirror/StateMerge.h"

#include <QtCore/QSet>

namespace platform {

// The big values that records refer to, by hash.
struct AssetShelf {
    std::map<QByteArray, QCborValue> values;
    QSet<QByteArray> lost; // the server does not have them; records that need them are parked
};

// Takes records of the server into the local objects, within one transaction.
class RecordIntake {
public:
    RecordIntake(const MirrorEnvironment& environment, MirrorProgress& progress, const AssetShelf& assets);

    StoreResult<void> take(const ZoneRecord& record);

    // Assets that have to be fetched first. If there are any the transaction must not be committed.
    const QSet<QByteArray>& missing() const { return m_missing; }

    bool hasChanged() const { return m_hasChanged; } // something that a user might see

private:
    StoreResult<void> park(const QUuid& id, MirroredObject object, const ZoneRecord& record);
    StoreResult<void> join(const QUuid& id, MirroredObject object, const ObjectState& theirs,
                           qint64 revision);
    StoreResult<void> keepLostTexts(const QUuid& id, const StateMerge& merge);
    StoreResult<void> keep(const DisplacedText& text);
    StoreResult<void> markChanged(MirroredObject& object);
    bool fillIn(ObjectState& theirs, const MirroredObject& object);
    std::optional<QCborValue> valueFor(const QString& property, const Register& theirs,
                                       const QByteArray& hash, const MirroredObject& object);
    Stamp newStamp(std::uint64_t atLeast);

    const MirrorEnvironment& m_environment;
    MirrorProgress& m_progress;
    const AssetShelf& m_assets;
    QSet<QByteArray> m_missing;
    bool m_hasChanged = false;
};

} // namespace platform
