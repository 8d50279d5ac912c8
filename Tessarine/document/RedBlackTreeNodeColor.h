#pragma once

#include <cstdint>

namespace tessarine {

enum class RedBlackTreeNodeColor : std::uint8_t { black, red };

} // namespace tessarine
