#pragma once

#include "platform/cloud/CKError.h"

#include <string_view>

namespace platform {

// What an SQLSTATE, the five characters of a server's answer, means for a cloud.
CKError::Code codeOfSqlState(std::string_view state);

} // namespace platform
