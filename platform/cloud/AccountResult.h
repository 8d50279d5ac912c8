#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CloudAccount.h"

#include <optional>

namespace platform {

// The account that is signed in, nothing where nobody is, or why that cannot be told.
using AccountResult = CloudResult<std::optional<CloudAccount>>;

} // namespace platform
