#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/Rect.h"

#include <string>

namespace tessarine {

// The part of a highlighted range that lies in one row, in the content. In points.
struct CachedHighlightRect {
    std::string id; // of the range, the row and the part in it
    Rect rect;
    bool containsStart = false;
    bool containsEnd = false;
    Color color;
    double cornerRadius = 0;

    friend bool operator==(const CachedHighlightRect&, const CachedHighlightRect&) = default;
};

} // namespace tessarine
