#pragma once

#include "platform/mirror/MirrorPull.h"

#include <optional>

namespace platform {

struct SyncResult {
    bool hasChanged = false; // something in the local store is not as it was
    bool hasMore = false;    // the server was too busy to be caught up with; again, soon
};

// Keeps the objects of a local store and a zone of the cloud the same.
//
// One thread. Blocks for as long as the cloud's calls do; holds no transaction of the storage meanwhile. Any
// call of either may fail or never return, and the process may end at any instruction: what was durable is
// enough for the next sync to go on. Knows no time to wait: who calls it polls, and backs off after errors.
class Mirror {
public:
    Mirror(CloudStore& cloud, MirrorStorage& storage, const MirrorPolicy& policy, QString zone,
           std::function<WallTime()> wall, std::function<QUuid()> random);

    // Reads what is new, sends what was changed here, and now and then collects.
    MirrorResult<SyncResult> sync();

private:
    // Whether everything is sent; false where the server has moved on.
    MirrorResult<bool> pushAll();
    MirrorResult<void> tidy();
    MirrorResult<void> report();
    MirrorResult<void> collect();

    MirrorEnvironment m_environment;
    bool m_hasTriedParked = false;
    qint64 m_reported = 0;
    std::optional<WallTime> m_reportTime;
    std::optional<WallTime> m_collectionTime;
};

} // namespace platform
