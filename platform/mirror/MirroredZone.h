#pragma once

#include "platform/mirror/MirrorPolicy.h"
#include "platform/mirror/MirrorStorage.h"

namespace platform {

// A zone of the cloud with what it mirrors on this device. The mirror's thread, all of it; what is made in
// open() goes in close().
class MirroredZone {
public:
    MirroredZone(QString zone, MirrorPolicy policy)
        : m_zone(std::move(zone))
        , m_policy(std::move(policy)) {}

    virtual ~MirroredZone() = default;
    MirroredZone(const MirroredZone&) = delete;
    MirroredZone& operator=(const MirroredZone&) = delete;

    const QString& zone() const { return m_zone; }

    const MirrorPolicy& policy() const { return m_policy; }

    // The storage lives until close(). Called before each sync.
    virtual StoreResult<MirrorStorage*> open() = 0;
    virtual void close() = 0;

    // Ahead of a sync: what was changed here and is not in the outbox yet goes there.
    virtual StoreResult<void> gather() { return {}; }

    // After one: what came is handed on to where it is used.
    virtual StoreResult<void> handOn() { return {}; }

private:
    QString m_zone;
    MirrorPolicy m_policy;
};

} // namespace platform
