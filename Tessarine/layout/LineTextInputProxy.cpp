#include "Tessarine/layout/LineTextInputProxy.h"

#include <algorithm>
#include <cmath>

namespace tessarine {

namespace {

// From one unit to another of the same row, as high as the row. Text may run from right to left.
Rect rectInRow(const LineFragment& row, std::int64_t start, std::int64_t limit) {
    const double startX = row.line->offsetForStringIndex(start);
    const double limitX = row.line->offsetForStringIndex(limit);
    return {.x = std::min(startX, limitX),
            .y = row.yPosition,
            .width = std::abs(limitX - startX),
            .height = row.scaledSize.height};
}

} // namespace

Rect LineTextInputProxy::caretRect(std::int64_t index) const {
    const auto found = std::ranges::partition_point(
        m_lineFragments, [&](const auto& fragment) { return fragment->range.limit() < index; });
    if (found == m_lineFragments.end() || index < (*found)->range.location) {
        const double height = m_estimatedLineFragmentHeight;
        return {.x = 0,
                .y = (height * m_lineFragmentHeightMultiplier - height) * 0.5,
                .width = caretWidth,
                .height = height};
    }
    const LineFragment& row = **found;
    return {.x = row.line->offsetForStringIndex(index),
            .y = row.yPosition + (row.scaledSize.height - row.baseSize.height) * 0.5,
            .width = caretWidth,
            .height = row.baseSize.height};
}

Rect LineTextInputProxy::firstRect(const TextRange& range) const {
    const auto found = std::ranges::find_if(m_lineFragments, [&](const auto& fragment) {
        return range.location >= 0 && range.location <= fragment->range.length;
    });
    if (found == m_lineFragments.end())
        return {.height = m_estimatedLineFragmentHeight * m_lineFragmentHeightMultiplier};
    const LineFragment& row = **found;
    return rectInRow(row, range.location, std::min(range.limit(), row.range.limit()));
}

std::int64_t LineTextInputProxy::closestIndex(const Point& point) const {
    if (m_lineFragments.empty()) return 0;
    const auto found = std::ranges::partition_point(
        m_lineFragments, [&](const auto& fragment) { return fragment->maxY() < point.y; });
    const LineFragment& row = found == m_lineFragments.end() ? *m_lineFragments.back() : **found;
    return row.line->stringIndexForPosition(point.x);
}

std::vector<Rect> LineTextInputProxy::selectionRects(const TextRange& range) const {
    std::vector<Rect> rects;
    auto row = std::ranges::partition_point(
        m_lineFragments, [&](const auto& fragment) { return fragment->range.limit() <= range.location; });
    for (; row != m_lineFragments.end() && (*row)->range.location < range.limit(); ++row)
        rects.push_back(rectInRow(**row, std::max(range.location, (*row)->range.location),
                                  std::min(range.limit(), (*row)->range.limit())));
    return rects;
}

} // namespace tessarine
