#pragma once

#include "Tessarine/document/ClosedRangeValueSearchQuery.h"
#include "Tessarine/layout/LineFragmentNodeData.h"

namespace tessarine {

// Finds the rows that have a height in common with the range, were it only where they end or begin. In points
// from the line's top.
class LineFragmentFrameQuery final
    : public RedBlackTreeSearchQuery<LineFragmentNodeID, std::int64_t, LineFragmentNodeData> {
public:
    explicit LineFragmentFrameQuery(const ClosedRange<double>& closedRange)
        : range(closedRange) {}

    bool wantsLeftSubtree(const Node& node) override { return range.lowerBound <= node.data().minY(); }

    bool wantsRightSubtree(const Node& node) override { return node.data().maxY() <= range.upperBound; }

    bool matches(const Node& node) override {
        return node.data().minY() <= range.upperBound && range.lowerBound <= node.data().maxY();
    }

    const ClosedRange<double> range;
};

} // namespace tessarine
