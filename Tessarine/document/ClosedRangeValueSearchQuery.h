#pragma once

#include "Tessarine/document/RedBlackTreeSearchQuery.h"

#include <unordered_map>

namespace tessarine {

// [lowerBound, upperBound], both ends included.
template <class NodeValue>
struct ClosedRange {
    NodeValue lowerBound;
    NodeValue upperBound;
};

// Finds the nodes that start in the range or reach into it. A node that only ends where the range starts
// is not found: its end belongs to the next one. Locations are remembered for the life of the query, which
// must not outlast an edit.
template <RedBlackTreeNodeID ID, class Value, class Data>
class ClosedRangeValueSearchQuery final : public RedBlackTreeSearchQuery<ID, Value, Data> {
public:
    using Node = RedBlackTreeNode<ID, Value, Data>;

    explicit ClosedRangeValueSearchQuery(ClosedRange<Value> closedRange)
        : range(closedRange) {}

    bool wantsLeftSubtree(const Node& node) override { return !(locationOf(node) < range.lowerBound); }

    bool wantsRightSubtree(const Node& node) override {
        return !(range.upperBound < locationOf(node) + node.value());
    }

    bool matches(const Node& node) override {
        const Value location = locationOf(node);
        if (range.upperBound < location) return false;
        return !(location < range.lowerBound) || range.lowerBound < location + node.value();
    }

    const ClosedRange<Value> range;
    std::unordered_map<ID, Value> cachedNodeLocations;

private:
    Value locationOf(const Node& node) {
        const auto [entry, isNew] = cachedNodeLocations.try_emplace(node.id());
        if (isNew) entry->second = node.location();
        return entry->second;
    }
};

} // namespace tessarine
