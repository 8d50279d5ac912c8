#pragma once

// The tree's account of its own health.

#include "Tessarine/document/RedBlackTree.h"

namespace tessarine {

template <RedBlackTreeNodeID ID, class Value, class Data>
std::optional<std::string> RedBlackTree<ID, Value, Data>::check() const {
    if (!m_root) return "there is no root";
    if (root().m_isRed) return "the root is red";
    if (root().m_parent) return "the root has a parent";
    int blackHeight = 0;
    return checkSubtree(root(), blackHeight);
}

template <RedBlackTreeNodeID ID, class Value, class Data>
std::optional<std::string> RedBlackTree<ID, Value, Data>::checkSubtree(const Node& node,
                                                                       int& blackHeight) const {
    if (&node.tree() != this) return "a node does not know its tree";
    std::int64_t count = 1;
    Value total = node.m_value;
    int heights[] = {0, 0};
    int* height = heights;
    for (const Node* child : {node.left(), node.right()}) {
        if (child) {
            if (child->m_parent != &node) return "a child does not know its parent";
            if (node.m_isRed && child->m_isRed) return "a red node has a red child";
            if (auto fault = checkSubtree(*child, *height)) return fault;
            count += child->m_nodeTotalCount;
            total = total + child->m_nodeTotalValue;
        }
        ++height;
    }
    if (count != node.m_nodeTotalCount) return "a total count is stale";
    if (!(total == node.m_nodeTotalValue)) return "a total value is stale";
    if (heights[0] != heights[1]) return "black heights differ";
    blackHeight = heights[0] + (node.m_isRed ? 0 : 1);
    return std::nullopt;
}

} // namespace tessarine
