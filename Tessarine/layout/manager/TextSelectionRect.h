#pragma once

#include "Tessarine/base/Rect.h"

namespace tessarine {

// A part of a selection as it lies in the content, and which of the selection's ends it holds. In points.
struct TextSelectionRect {
    Rect rect;
    bool containsStart = false;
    bool containsEnd = false;

    friend bool operator==(const TextSelectionRect&, const TextSelectionRect&) = default;
};

} // namespace tessarine
