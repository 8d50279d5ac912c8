#pragma once

#include "Tessarine/layout/manager/LineControllers.h"

#include <cstdint>
#include <optional>

namespace tessarine {

class LayoutGeometry;

// The lines that the selection reaches into, as far as they are to stand out.
struct SelectedLines {
    std::int64_t firstRow = 0;
    std::int64_t lastRow = -1; // zero-based as the first; below it if no line stands out

    // From where to where they stand out, in points of the content: whole lines, or rows of wrapped ones.
    double top = 0;
    double bottom = 0;

    bool isEmpty() const { return lastRow < firstRow; }

    bool contains(std::int64_t row) const { return firstRow <= row && row <= lastRow; }

    // Typesets nothing: a place that has not been typeset counts as the nearer end of its line.
    // Cost: O(log n).
    static SelectedLines find(const LayoutContext& context, const LayoutGeometry& geometry,
                              const LineControllers& lineControllers);
};

} // namespace tessarine
