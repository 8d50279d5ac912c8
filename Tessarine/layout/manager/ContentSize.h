#pragma once

#include "Tessarine/base/Size.h"
#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/LineWidths.h"

#include <functional>
#include <optional>

namespace tessarine {

// How large the whole text is with what lies around it, as far as that is known: an estimate that gets better
// with every line laid out. In points. Cost: O(1), see LineWidths for the exception.
class ContentSize {
public:
    ContentSize(const LayoutContext& context, const LayoutGeometry& geometry)
        : m_context(context)
        , m_geometry(geometry) {}

    double textContentWidth();
    double textContentHeight();
    double contentWidth();
    double contentHeight();

    Size size() { return {contentWidth(), contentHeight()}; }

    // Forgets what has been added up, but no line.
    void invalidate();

    void invalidateWidth() { m_textContentWidth.reset(); }

    bool knowsLines() const { return !m_lineWidths.isEmpty(); }

    // Tells what came out when a line was laid out.
    void lineWasLaidOut(DocumentLineNode& line, double width, double height);

    void removeLine(const DocumentLineNodeID& lineID);
    void removeAllLines();

    // All known widths are of no use any more. They are asked for until the next pass, so they go then.
    void setShouldResetLineWidths() { m_shouldResetLineWidths = true; }

    void resetLineWidthsIfNeeded();

private:
    const LayoutContext& m_context;
    const LayoutGeometry& m_geometry;
    LineWidths m_lineWidths;
    bool m_shouldResetLineWidths = false;
    std::optional<double> m_textContentWidth;
    std::optional<double> m_textContentHeight;
};

} // namespace tessarine
