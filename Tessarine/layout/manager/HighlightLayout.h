#pragma once

#include "Tessarine/layout/LineFragmentController.h"
#include "Tessarine/layout/manager/HighlightView.h"
#include "Tessarine/layout/manager/HighlightedRangeIndex.h"
#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/ViewReuseQueue.h"

#include <memory>
#include <string>
#include <vector>

namespace tessarine {

// Places a view for every row's part of every highlighted range, behind the rows on screen.
// Cost: of a row O(log ranges), and the parts in it.
class HighlightLayout {
public:
    explicit HighlightLayout(const LayoutGeometry& geometry)
        : m_geometry(geometry) {}

    const std::shared_ptr<View>& highlightsContainerBackgroundView() const {
        return m_highlightsContainerBackgroundView;
    }

    const ViewReuseQueue<std::string, HighlightView>& views() const { return m_highlightViewReuseQueue; }

    void setHighlightedRanges(const HighlightedRangeIndex::Ranges& ranges) {
        m_highlightedRanges.setRanges(ranges);
    }

    void textDidChange(const TextReplacement& replacement) { m_highlightedRanges.textDidChange(replacement); }

    // A pass tells of the rows that show, line by line, and takes away at its end what it has not come
    // across.
    void layoutLine(const DocumentLineNode& line,
                    const std::vector<std::shared_ptr<LineFragmentController>>& rows);
    void finishPass(const Rect& containerFrame);

private:
    // `inLine` is where the range is by now.
    std::vector<CachedHighlightRect> highlightRects(const HighlightedRange& highlighted,
                                                    const TextRange& inLine, const LineFragment& row,
                                                    double lineTop) const;
    void show(const CachedHighlightRect& rect);

    const LayoutGeometry& m_geometry;
    const std::shared_ptr<View> m_highlightsContainerBackgroundView = std::make_shared<View>();
    HighlightedRangeIndex m_highlightedRanges;
    ViewReuseQueue<std::string, HighlightView> m_highlightViewReuseQueue;
    ViewReuseQueue<std::string, HighlightView>::Keys m_placed; // in this pass
};

} // namespace tessarine
