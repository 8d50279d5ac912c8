#include "Tessarine/layout/manager/HighlightLayout.h"

#include <algorithm>
#include <string>

namespace tessarine {

void HighlightLayout::layoutLine(const DocumentLineNode& line,
                                 const std::vector<std::shared_ptr<LineFragmentController>>& rows) {
    if (m_highlightedRanges.isEmpty()) return;
    const std::int64_t lineLocation = line.location();
    const double lineTop = m_geometry.topOf(line);
    for (const auto& controller : rows) {
        const LineFragment& row = *controller->lineFragment();
        const TextRange inDocument{lineLocation + row.range.location, row.range.length};
        m_highlightedRanges.visit(inDocument, [&](const HighlightedRange& highlighted, TextRange range) {
            range.location -= lineLocation;
            for (const CachedHighlightRect& rect : highlightRects(highlighted, range, row, lineTop))
                show(rect);
        });
    }
}

void HighlightLayout::show(const CachedHighlightRect& rect) {
    const auto& view = m_highlightViewReuseQueue.dequeueView(rect.id);
    if (!view->superview()) m_highlightsContainerBackgroundView->addSubview(view);
    view->show(rect);
    m_placed.insert(rect.id);
}

// Several where the row's text runs both ways; of these the outer ones have the corners.
std::vector<CachedHighlightRect> HighlightLayout::highlightRects(const HighlightedRange& highlighted,
                                                                 const TextRange& inLine,
                                                                 const LineFragment& row,
                                                                 double lineTop) const {
    const std::int64_t start = std::max(inLine.location, row.range.location);
    const std::int64_t limit = std::min(inLine.limit(), row.range.limit());
    const auto spans = row.line->spansOf({start, limit - start});
    std::vector<CachedHighlightRect> rects;
    for (std::size_t i = 0; i < spans.size(); ++i)
        rects.push_back({.id = highlighted.id + ' ' + row.id.id() + ' ' + std::to_string(i),
                         .rect = {.x = m_geometry.leadingLineSpacing() + spans[i].minX,
                                  .y = lineTop + row.yPosition,
                                  .width = spans[i].maxX - spans[i].minX,
                                  .height = row.scaledSize.height},
                         .containsStart = i == 0 && inLine.location >= row.range.location,
                         .containsEnd = i + 1 == spans.size() && inLine.limit() <= row.range.limit(),
                         .color = highlighted.color,
                         .cornerRadius = highlighted.cornerRadius});
    return rects;
}

void HighlightLayout::finishPass(const Rect& containerFrame) {
    m_highlightsContainerBackgroundView->setFrame(containerFrame);
    m_highlightViewReuseQueue.enqueueViewsExcept(m_placed);
    m_placed.clear();
}

} // namespace tessarine
