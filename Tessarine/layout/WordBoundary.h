#pragma once

namespace tessarine {

// Whether a row may end behind this unit: white space that is no line break, or punctuation. Half a surrogate
// pair is neither.
bool isWordBoundary(char16_t unit);

} // namespace tessarine
