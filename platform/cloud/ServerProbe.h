#pragma once

#include "platform/cloud/ServerParameters.h"

namespace platform {

// Connects to a server once and hangs up, to learn what Qt's driver does not tell: why a connection fails,
// whatever language the server speaks, and at which of the host's addresses it does not. Gives that address;
// empty for a Unix socket.
CloudResult<QString> probeServer(const ServerParameters& parameters,
                                 std::chrono::steady_clock::time_point limit);

} // namespace platform
