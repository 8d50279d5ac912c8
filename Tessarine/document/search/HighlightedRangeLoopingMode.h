#pragma once

namespace tessarine {

// Whether a step past the last of the highlighted ranges goes to the first, and the reverse.
enum class HighlightedRangeLoopingMode { enabled, disabled };

} // namespace tessarine
