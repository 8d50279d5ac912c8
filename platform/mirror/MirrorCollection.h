#pragma once

#include "platform/mirror/MirrorPush.h"

namespace platform {

// Removes old tombstones, once every device that the server knows of has read them. To be run when there is
// nothing to read and nothing to send.
//
// All dead objects with records up to the zone's horizon are gone: so others may drop theirs by the horizon
// alone. Dead objects that are shown, for what is alive belongs to them, stay, and are written anew to have
// records above it.
class MirrorCollection {
public:
    explicit MirrorCollection(const MirrorEnvironment& environment)
        : m_environment(environment) {}

    MirrorResult<void> run();

private:
    struct Plan {
        std::vector<QUuid> kept;
        std::vector<QUuid> collected;
        qint64 horizon = 0;
    };

    // The revision that every device has read; devices long silent are forgotten.
    MirrorResult<qint64> readByAll();
    StoreResult<Plan> plan(qint64 upTo);
    StoreResult<qint64> belowWhatStays(const std::vector<QUuid>& dead, qint64 upTo);
    bool isYoung(const ObjectState& state) const;

    const MirrorEnvironment& m_environment;
};

} // namespace platform
