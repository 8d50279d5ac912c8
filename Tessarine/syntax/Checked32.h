#pragma once

#include <cstdint>

namespace tessarine {

// The value in the 32 bits that the parser counts in. One that does not fit stops the program.
std::uint32_t checked32(std::int64_t value);

} // namespace tessarine
