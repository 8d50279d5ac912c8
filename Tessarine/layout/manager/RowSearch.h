#pragma once

#include "Tessarine/layout/LineFragment.h"

#include <cstdint>

namespace tessarine {

// Finds rows of a line among those that have been typeset, in their order. Null where there is none.
// Units: locations in code units and heights in points, from the start of the line. Cost: O(log rows).

// The row that holds the unit at a location.
const LineFragment* rowOfUnit(const LineFragments& rows, std::int64_t location);

// The row in which the caret shows: between two of them the end of the first.
const LineFragment* rowAtCaret(const LineFragments& rows, std::int64_t location);

// The row that shows at a height.
const LineFragment* rowAtHeight(const LineFragments& rows, double y);

} // namespace tessarine
