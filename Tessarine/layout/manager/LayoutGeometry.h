#pragma once

#include "Tessarine/document/DocumentLineNodeData.h"
#include "Tessarine/layout/manager/LayoutContext.h"
#include "Tessarine/layout/manager/LineNumberWidth.h"

namespace tessarine {

// Where text and gutter lie in the content of the scroll view, as far as the sizes of lines do not matter. In
// points. Cost: O(1), a place of a line O(log n).
class LayoutGeometry {
public:
    LayoutGeometry(const LayoutContext& context, const LineNumberWidth& lineNumberWidth)
        : m_context(context)
        , m_lineNumberWidth(lineNumberWidth) {}

    // 0 without line numbers. Its paddings are counted beside those that the width of the numbers holds.
    double gutterWidth() const;

    double lineNumberWidth() const { return m_lineNumberWidth.value(); }

    // Where rows start.
    double leadingLineSpacing() const { return gutterWidth() + m_context.textContainerInset.left; }

    // What the host's surroundings take from the scroll view.
    EdgeInsets safeInset() const;

    // The scroll view's width without that.
    double availableWidth() const;

    // What is left for the text of a row; without wrapping more than any screen has.
    double constrainingLineWidth() const;

    // What the symbols behind a row's text need.
    double insetForInvisibles() const {
        return m_context.invisibleCharacterConfiguration->maximumLineBreakSymbolWidth();
    }

    // A line's y is counted from the first line, a place in the content from its top.
    double contentY(double lineY) const { return m_context.textContainerInset.top + lineY; }

    double lineY(double contentY) const { return contentY - m_context.textContainerInset.top; }

    double topOf(const DocumentLineNode& line) const { return contentY(line.data().yPosition()); }

private:
    const LayoutContext& m_context;
    const LineNumberWidth& m_lineNumberWidth;
};

} // namespace tessarine
