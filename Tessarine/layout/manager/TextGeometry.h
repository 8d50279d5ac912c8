#pragma once

#include "Tessarine/base/Point.h"
#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/LineControllers.h"
#include "Tessarine/layout/manager/TextSelectionRect.h"

#include <vector>

namespace tessarine {

class ContentSize;

// Where characters stand in the content, and which character stands at a place.
//
// Units: locations in code units, lengths in points. A line that is asked for is typeset as far as needed,
// whether it is on screen or not; its height in the document stays as it is until it is laid out.
// Cost: O(log n) and the typesetting.
class TextGeometry {
public:
    TextGeometry(const LayoutContext& context, const LayoutGeometry& geometry,
                 LineControllers& lineControllers, ContentSize& contentSize);

    // A location outside of the text stands for its nearer end.
    Rect caretRect(std::int64_t location);

    // Of the part of the range that lies in the row where it starts. The location must lie in the text, else
    // the program stops.
    Rect firstRect(const TextRange& range);

    // The location of the character boundary nearest to a place.
    std::int64_t closestIndex(const Point& point);

    // From one row to three parts: the first row, what lies between, the last row. A negative length reaches
    // back from the location. None for an empty range.
    std::vector<TextSelectionRect> selectionRects(const TextRange& range);

private:
    LineController& controllerOf(DocumentLineNode& line);
    Rect startRect(std::int64_t location);
    Rect rowOf(const Rect& caret, double minX, double maxX) const;
    bool reachesIntoBreak(std::int64_t location) const;

    const LayoutContext& m_context;
    const LayoutGeometry& m_geometry;
    LineControllers& m_lineControllers;
    ContentSize& m_contentSize;
};

} // namespace tessarine
