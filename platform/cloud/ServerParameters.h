#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CloudAccount.h"

#include <chrono>
#include <utility>
#include <vector>

namespace platform {

using ServerParameters = std::vector<std::pair<QString, QString>>;

// libpq's parameters of a connection to the account's server, all that the environment could change for the
// worse among them. NotAuthenticated for a server on another machine whose certificate would not be verified,
// InvalidArguments for an account that makes no sense.
CloudResult<ServerParameters> serverParameters(const ServerAccount& account,
                                               std::chrono::milliseconds deadline);

} // namespace platform
