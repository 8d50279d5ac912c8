#pragma once

#include "platform/mirror/MirrorEnvironment.h"

namespace platform {

// The name under which this device writes. Two devices can come to have the same one when the data of one is
// copied or put back from a backup. The server remembers the tag of the last push under each name: who does
// not know it is the copy and takes a new name, with whatever it has not sent yet, before it takes in
// anything that the other wrote. So under one name there is one line of writes.
class DeviceIdentity {
public:
    explicit DeviceIdentity(const MirrorEnvironment& environment)
        : m_environment(environment) {}

    StoreResult<void> ensure();
    // Tells the server how far this device has read, so that nothing that it has not is collected.
    MirrorResult<void> announce();
    // What was read from the server before is then known to hold no other's writes under this name.
    MirrorResult<void> check();

private:
    StoreResult<void> learn(const QUuid& lastTag);
    StoreResult<void> takeNew(MirrorProgress& progress);
    StoreResult<void> rename(const QUuid& id, const QUuid& device, const QUuid& newDevice);

    const MirrorEnvironment& m_environment;
};

} // namespace platform
