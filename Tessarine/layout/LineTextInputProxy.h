#pragma once

#include "Tessarine/base/Rect.h"
#include "Tessarine/base/TextRange.h"
#include "Tessarine/layout/LineFragment.h"

#include <cstdint>
#include <vector>

namespace tessarine {

// Where in a line a text input finds its places, by the rows that there are so far.
//
// Units: indices in code units from the line's start, points from its top left corner.
// Cost: O(log rows), and firstRect() O(rows). Main thread.
class LineTextInputProxy {
public:
    static constexpr double caretWidth = 3;

    // Borrows the rows, which may change.
    explicit LineTextInputProxy(const LineFragments& lineFragments)
        : m_lineFragments(lineFragments) {}

    double estimatedLineFragmentHeight() const { return m_estimatedLineFragmentHeight; }

    void setEstimatedLineFragmentHeight(double height) { m_estimatedLineFragmentHeight = height; }

    double lineFragmentHeightMultiplier() const { return m_lineFragmentHeightMultiplier; }

    void setLineFragmentHeightMultiplier(double multiplier) { m_lineFragmentHeightMultiplier = multiplier; }

    // As high as the text. At the end of a row, not at the start of the next; without a row where it would
    // be.
    Rect caretRect(std::int64_t index) const;

    // The part of the range in one row: by its start as if every row counted from 0, so it is the first row
    // for whatever lies in as many units as the row has.
    Rect firstRect(const TextRange& range) const;

    // In the row that the point lies in or above, else in the last.
    std::int64_t closestIndex(const Point& point) const;

    // As high as the rows, one for each that holds a part of the range.
    std::vector<Rect> selectionRects(const TextRange& range) const;

private:
    const LineFragments& m_lineFragments;
    double m_estimatedLineFragmentHeight = 12;
    double m_lineFragmentHeightMultiplier = 1;
};

} // namespace tessarine
