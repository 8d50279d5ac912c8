#pragma once

#include "platform/mirror/MirrorEnvironment.h"

namespace platform {

// Sends local changes to the server, on top of all that was read from it.
class MirrorPush {
public:
    explicit MirrorPush(const MirrorEnvironment& environment)
        : m_environment(environment) {}

    // Nothing where there was nothing to send; else what became of one push of the oldest changes.
    MirrorResult<std::optional<PushOutcome>> run();
    // Rewrites `kept` as they are, and removes the records of `collected` and sets the zone's horizon.
    MirrorResult<PushOutcome> collect(const std::vector<QUuid>& kept, const std::vector<QUuid>& collected,
                                      qint64 horizon);

private:
    struct SentObject {
        QUuid id;
        MirroredObject object;
    };

    struct Batch {
        ZonePush push;
        std::vector<SentObject> objects;
        std::vector<QUuid> collected;
    };

    StoreResult<void> addOutbox(Batch& batch);
    StoreResult<qsizetype> add(Batch& batch, const QUuid& id);
    // The tag is stored before it is sent: if the reply is lost the device still knows its push by it.
    StoreResult<void> sign(Batch& batch, MirrorProgress& progress);
    MirrorResult<PushOutcome> send(const Batch& batch);
    StoreResult<void> settle(const Batch& batch, qint64 revision);
    StoreResult<void> settleObject(const SentObject& sent, const QUuid& device, qint64 revision);
    StoreResult<void> removeCollected(const QUuid& id);

    const MirrorEnvironment& m_environment;
};

} // namespace platform
