#include "Tessarine/view/FittingUnits.h"

#include "Tessarine/view/EvenRow.h"
#include "Tessarine/view/RowLayout.h"

#include <algorithm>

namespace tessarine {

namespace {

// But for 0.
std::vector<int> boundariesOf(const RowLayout& layout, qsizetype length) {
    std::vector<int> boundaries;
    for (int at = 1; at <= length; ++at)
        if (layout.isBoundary(at)) boundaries.push_back(at);
    return boundaries;
}

template <class WidthOfPrefix>
int lastFitting(const std::vector<int>& boundaries, double width, WidthOfPrefix widthOfPrefix) {
    const auto fits = [&](int length) { return widthOfPrefix(length) <= width; };
    const auto tooLong = std::ranges::partition_point(boundaries, fits);
    return tooLong == boundaries.begin() ? boundaries.front() : *std::prev(tooLong);
}

} // namespace

int fittingUnits(const RowText& coloredRow, double width) {
    if (coloredRow.isEven()) return evenFittingUnits(coloredRow, width);
    const RowText row = coloredRow.withRunsOfFaces();
    const RowLayout layout(row, UserInterfaceStyle::Light);
    const auto boundaries = boundariesOf(layout, row.text.size());
    if (row.hasRightToLeft)
        return lastFitting(boundaries, width, [&](int length) {
            return RowLayout(row.prefix(length), UserInterfaceStyle::Light).width();
        });
    return lastFitting(boundaries, width, [&](int length) { return layout.line().cursorToX(length); });
}

} // namespace tessarine
