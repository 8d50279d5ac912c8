#pragma once

#include <cstdint>

namespace tessarine {

// What is selected of a line that was gone to: its start, the end of what it holds, or all that it holds.
enum class GoToLineSelection : std::uint8_t { beginning, end, line };

} // namespace tessarine
