#pragma once

#include "Tessarine/base/TextRange.h"

#include <QtGui/QAccessible>

#include <cstdint>

namespace tessarine {

class TextView;

// The pieces that assistive tools read by. Cost: O(log n) and the piece; a row is set if it has not been yet.

// What holds the unit at a location; empty at the end of the text. A line of the toolkit is a row here, a
// paragraph is a line, and so is a sentence. Requires 0 <= location <= length of the text.
TextRange pieceAt(TextView& textView, std::int64_t location, QAccessible::TextBoundaryType boundary);

// The ones in front of it and behind it; empty where there is none.
TextRange pieceBefore(TextView& textView, std::int64_t location, QAccessible::TextBoundaryType boundary);
TextRange pieceAfter(TextView& textView, std::int64_t location, QAccessible::TextBoundaryType boundary);

} // namespace tessarine
