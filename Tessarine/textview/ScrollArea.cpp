#include "Tessarine/textview/ScrollArea.h"

#include <algorithm>

namespace tessarine {

namespace {

// One axis of what is seen, and what of it is covered or to be kept free at its ends.
struct Axis {
    double offset;
    double length;
    double before;
    double behind;
};

double offsetShowing(const Axis& axis, double min, double max) {
    const double atStart = min - axis.before;
    const double atEnd = max + axis.behind - axis.length;
    if (axis.offset > atStart) return atStart;
    return axis.offset < atEnd ? std::min(atEnd, atStart) : axis.offset;
}

} // namespace

Point minimumContentOffset(const ScrollView& scrollView) {
    const EdgeInsets inset = scrollView.adjustedContentInset();
    return {.x = -inset.left, .y = -inset.top};
}

Point maximumContentOffset(const ScrollView& scrollView) {
    const EdgeInsets inset = scrollView.adjustedContentInset();
    const Point least = minimumContentOffset(scrollView);
    const Size& content = scrollView.contentSize();
    return {.x = std::max(least.x, content.width + inset.right - scrollView.frame().width),
            .y = std::max(least.y, content.height + inset.bottom - scrollView.frame().height)};
}

Point contentOffsetInRange(const ScrollView& scrollView, const Point& offset) {
    const Point least = minimumContentOffset(scrollView);
    const Point most = maximumContentOffset(scrollView);
    return {.x = std::clamp(offset.x, least.x, most.x), .y = std::clamp(offset.y, least.y, most.y)};
}

Point contentOffsetShowing(const ScrollView& scrollView, const Rect& rect, const EdgeInsets& margin) {
    const Rect bounds = scrollView.bounds();
    const EdgeInsets inset = scrollView.adjustedContentInset();
    const Axis x{bounds.x, bounds.width, inset.left + margin.left, inset.right + margin.right};
    const Axis y{bounds.y, bounds.height, inset.top + margin.top, inset.bottom + margin.bottom};
    return contentOffsetInRange(scrollView, {.x = offsetShowing(x, rect.minX(), rect.maxX()),
                                             .y = offsetShowing(y, rect.minY(), rect.maxY())});
}

} // namespace tessarine
