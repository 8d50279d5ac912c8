#pragma once

#include "Tessarine/base/EdgeInsets.h"
#include "Tessarine/base/Point.h"
#include "Tessarine/base/Rect.h"
#include "Tessarine/layout/ScrollView.h"

namespace tessarine {

// How far a scroll view scrolls, and how to bring something into view. In points of its content.

// The range of offsets. An axis on which everything shows has one.
Point minimumContentOffset(const ScrollView& scrollView);
Point maximumContentOffset(const ScrollView& scrollView);

// The nearest that lies in the range.
Point contentOffsetInRange(const ScrollView& scrollView, const Point& offset);

// The offset nearest to the present one at which the rectangle shows, `margin` away from the edges of what is
// not covered. Of one that is too large the top left corner.
Point contentOffsetShowing(const ScrollView& scrollView, const Rect& rect, const EdgeInsets& margin);

} // namespace tessarine
