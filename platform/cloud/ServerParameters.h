#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CloudAccount.h"

#include <chrono>
#include <utility>
#include <vector>

namespace platform {

using ServerParameters = std::vector<std::pair<QString, QString>>;

// libpq's parameters of a connection to the account's server. The environment comes in where one of them is
// empty or absent, so it must have been cleared; see unsetServerEnvironment(). NotAuthenticated for a server
// on another machine whose certificate would not be verified, InvalidArguments for an account that makes no
// sense.
CloudResult<ServerParameters> serverParameters(const ServerAccount& account,
                                               std::chrono::milliseconds deadline);

} // namespace platform
