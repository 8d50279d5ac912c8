#pragma once

#include "Tessarine/document/RedBlackTreeNode.h"

namespace tessarine {

// Decides, node by node, where a search goes and what it finds. May keep state between the questions.
template <RedBlackTreeNodeID ID, class Value, class Data>
class RedBlackTreeSearchQuery {
public:
    using NodeID = ID;
    using NodeValue = Value;
    using NodeData = Data;
    using Node = RedBlackTreeNode<ID, Value, Data>;

    RedBlackTreeSearchQuery() = default;
    RedBlackTreeSearchQuery(const RedBlackTreeSearchQuery&) = default;
    RedBlackTreeSearchQuery& operator=(const RedBlackTreeSearchQuery&) = default;
    virtual ~RedBlackTreeSearchQuery() = default;

    virtual bool wantsLeftSubtree(const Node& node) = 0;
    virtual bool wantsRightSubtree(const Node& node) = 0;
    virtual bool matches(const Node& node) = 0;
};

} // namespace tessarine
