#pragma once

#include "platform/mirror/DeviceIdentity.h"
#include "platform/mirror/RecordIntake.h"

namespace platform {

// Reads the server's zone into the local objects, page by page.
//
// Where the server's history is not the one that was read, and where so much was collected that deletions may
// have been missed, everything is read anew from the beginning. Nothing is ever deleted because it is not
// there, but in the second case: what was acknowledged, is unchanged, and is gone, was deleted and collected.
class MirrorPull {
public:
    explicit MirrorPull(const MirrorEnvironment& environment)
        : m_environment(environment)
        , m_identity(environment) {}

    // Until there is nothing more. False where the server kept changing and there is more.
    MirrorResult<bool> run();
    // Records that could not be read when they came: another program, or other assets, may do better.
    MirrorResult<void> retryParked();

    bool hasChanged() const { return m_hasChanged; }

private:
    enum class Finding { Next, Nothing, OtherHistory, MissedDeletions };

    static Finding judge(const MirrorProgress& progress, const ZoneChanges& page);
    // Whether there is more.
    MirrorResult<bool> readPage();
    MirrorResult<void> startReading(const ZoneHead& head, Finding why);
    MirrorResult<void> take(const MirrorProgress& asked, const ZoneChanges& page);
    StoreResult<void> advance(MirrorProgress& progress, const ZoneChanges& page);
    StoreResult<void> finishReading(MirrorProgress& progress);
    StoreResult<void> dropLostRecords(const MirrorProgress& progress);
    StoreResult<bool> isTooMuch(const std::vector<QUuid>& vanished);
    StoreResult<void> settleUnmet(const QUuid& id, const MirrorProgress& progress, bool isReconciling);
    StoreResult<void> removeCollected(const QUuid& id, MirroredObject object);
    StoreResult<void> dropTombstones(qint64 horizon);

    // Runs the body with an intake, in a transaction that is repeated when it has fetched missing assets.
    using IntakeBody = std::function<StoreResult<void>(RecordIntake&, MirrorProgress&)>;
    MirrorResult<void> withIntake(const IntakeBody& body);
    MirrorResult<void> fetch(const QSet<QByteArray>& hashes);

    const MirrorEnvironment& m_environment;
    DeviceIdentity m_identity;
    AssetShelf m_assets;
    bool m_hasChanged = false;
};

} // namespace platform
