#pragma once

#include <cstdint>

namespace tessarine {

// What stands out behind the selection: nothing, its whole lines, or only the rows of wrapped lines.
enum class LineSelectionDisplayType : std::uint8_t { disabled, line, lineFragment };

} // namespace tessarine
