#pragma once

#include "platform/cloud/CKError.h"

namespace platform {

// For a log: the code's number, its name, and the message.
QString descriptionOf(const CKError& error);

} // namespace platform
