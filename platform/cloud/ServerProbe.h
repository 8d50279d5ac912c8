#pragma once

#include "platform/cloud/ServerParameters.h"

#include <QtCore/QStringList>

namespace platform {

// Connects to a server once and hangs up, to learn what Qt's driver does not tell: why a connection fails,
// whatever language the server speaks, and at which of the host's addresses it does not. Gives that address;
// empty for a Unix socket.
CloudResult<QString> probeServer(const ServerParameters& parameters,
                                 std::chrono::steady_clock::time_point limit);

// Of these addresses of the host, an empty one for a Unix socket. Each gets its share of the time that is
// left, so that one that swallows everything does not hide the next. The error is the last one's.
CloudResult<QString> probeServer(const ServerParameters& parameters, const QStringList& addresses,
                                 std::chrono::steady_clock::time_point limit);

} // namespace platform
