#include "Tessarine/layout/manager/HighlightLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessarine {

void HighlightLayout::layoutLine(const DocumentLineNode& line,
                                 const std::vector<std::shared_ptr<LineFragmentController>>& rows) {
    if (m_highlightedRanges.isEmpty()) return;
    const std::int64_t lineLocation = line.location();
    const double lineTop = m_geometry.topOf(line);
    for (const auto& controller : rows) {
        const LineFragment& row = *controller->lineFragment();
        const TextRange inDocument{lineLocation + row.range.location, row.range.length};
        m_highlightedRanges.visit(inDocument,
                                  [&](const HighlightedRange& highlighted, const TextRange& range) {
                                      const CachedHighlightRect highlight =
                                          highlightRect(highlighted, range, row, lineLocation, lineTop);
                                      const auto& view = m_highlightViewReuseQueue.dequeueView(highlight.id);
                                      if (!view->superview())
                                          m_highlightsContainerBackgroundView->addSubview(view);
                                      view->show(highlight);
                                      m_placed.insert(highlight.id);
                                  });
    }
}

CachedHighlightRect HighlightLayout::highlightRect(const HighlightedRange& highlighted,
                                                   const TextRange& range, const LineFragment& row,
                                                   std::int64_t lineLocation, double lineTop) const {
    const std::int64_t rowStart = lineLocation + row.range.location;
    const std::int64_t rowLimit = lineLocation + row.range.limit();
    const std::int64_t start = std::max(range.location, rowStart);
    const std::int64_t limit = std::min(range.limit(), rowLimit);
    const double minX = row.line->offsetForStringIndex(start - lineLocation);
    const double maxX = row.line->offsetForStringIndex(limit - lineLocation);
    return {.id = highlighted.id + ' ' + row.id.id(),
            .rect = {.x = m_geometry.leadingLineSpacing() + std::min(minX, maxX),
                     .y = lineTop + row.yPosition,
                     .width = std::abs(maxX - minX),
                     .height = row.scaledSize.height},
            .containsStart = range.location >= rowStart,
            .containsEnd = range.limit() <= rowLimit,
            .color = highlighted.color,
            .cornerRadius = highlighted.cornerRadius};
}

void HighlightLayout::finishPass(const Rect& containerFrame) {
    m_highlightsContainerBackgroundView->setFrame(containerFrame);
    m_highlightViewReuseQueue.enqueueViewsExcept(m_placed);
    m_placed.clear();
}

} // namespace tessarine
