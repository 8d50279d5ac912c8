#pragma once

#include "Tessarine/base/Size.h"
#include "Tessarine/base/TextRange.h"
#include "Tessarine/layout/LineFragmentID.h"
#include "Tessarine/layout/TextLine.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tessarine {

// One visual row of a line. Units: the range counts code units from the line's start, sizes are in points.
struct LineFragment {
    LineFragmentID id;
    std::int64_t index = 0; // in the line
    TextRange range;
    std::shared_ptr<const TextLine> line;
    double descent = 0;
    Size baseSize;        // as the text has it
    Size scaledSize;      // the same with the line height that was asked for
    double yPosition = 0; // of its top in the line

    double maxY() const { return yPosition + scaledSize.height; }
};

// Fragments never change: one that has to look different is another object. Never null.
using LineFragmentReference = std::shared_ptr<const LineFragment>;

// In the order of their lines, without gaps.
using LineFragments = std::vector<LineFragmentReference>;

} // namespace tessarine
