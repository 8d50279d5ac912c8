#pragma once

#include <string>

namespace tessarine {

// The text form of a new random UUID (version 4), in capitals. Any thread.
std::string freshUUID();

} // namespace tessarine
