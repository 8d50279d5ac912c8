#pragma once

#include <cstdint>

namespace tessarine {

// Where a line that is wider than its space is broken into rows.
enum class LineBreakMode : std::uint8_t {
    byWordWrapping, // behind words, as far as they fit
    byCharWrapping, // behind the last character that fits
};

} // namespace tessarine
