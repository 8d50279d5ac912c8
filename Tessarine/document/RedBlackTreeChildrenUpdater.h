#pragma once

namespace tessarine {

// Keeps further subtree totals of a tree's data. The tree asks it wherever it refreshes its own totals.
template <class Node>
class RedBlackTreeChildrenUpdater {
public:
    RedBlackTreeChildrenUpdater() = default;
    RedBlackTreeChildrenUpdater(const RedBlackTreeChildrenUpdater&) = delete;
    RedBlackTreeChildrenUpdater& operator=(const RedBlackTreeChildrenUpdater&) = delete;
    virtual ~RedBlackTreeChildrenUpdater() = default;

    // Computes the node's totals from its own data and its children's, and tells whether any has changed:
    // the climb to the root goes on only then.
    virtual bool refreshAggregates(Node&) { return false; }
};

} // namespace tessarine
