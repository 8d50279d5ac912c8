#pragma once

#include "Tessarine/document/RedBlackTreeNode.h"
#include "Tessarine/layout/LineFragment.h"
#include "Tessarine/layout/LineFragmentNodeID.h"

#include <cstdint>

namespace tessarine {

// What a node of the tree of rows knows beside its value, the row's length in code units.
struct LineFragmentNodeData {
    LineFragmentReference lineFragment; // null in the only node of a tree without rows
    double totalLineFragmentHeight = 0; // in points, of all rows up to this one and with it

    // Where the row lies in its line.
    double minY() const {
        return totalLineFragmentHeight - (lineFragment ? lineFragment->scaledSize.height : 0);
    }

    double maxY() const { return totalLineFragmentHeight; }
};

using LineFragmentNode = RedBlackTreeNode<LineFragmentNodeID, std::int64_t, LineFragmentNodeData>;

} // namespace tessarine
