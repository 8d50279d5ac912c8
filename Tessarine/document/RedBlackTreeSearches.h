#pragma once

// The operations of the tree that only read.

#include "Tessarine/document/RedBlackTree.h"

namespace tessarine {

template <RedBlackTreeNodeID ID, class Value, class Data>
Value RedBlackTreeNode<ID, Value, Data>::location() const {
    return sumBefore(
        tree().minimumValue(), [](const RedBlackTreeNode& subtree) { return subtree.m_nodeTotalValue; },
        [](const RedBlackTreeNode& node) { return node.m_value; });
}

template <RedBlackTreeNodeID ID, class Value, class Data>
std::int64_t RedBlackTreeNode<ID, Value, Data>::index() const {
    static_cast<void>(tree()); // a node without its tree has no index
    return sumBefore(
        std::int64_t{0}, [](const RedBlackTreeNode& subtree) { return subtree.m_nodeTotalCount; },
        [](const RedBlackTreeNode&) { return 1; });
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::leftmost(Node& node) -> Node& {
    Node* first = &node;
    while (first->m_left)
        first = first->left();
    return *first;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::rightmost(Node& node) -> Node& {
    Node* last = &node;
    while (last->m_right)
        last = last->right();
    return *last;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::nodeContainingLocation(Value location) const -> Node* {
    const auto match = matchContainingLocation(location);
    return match ? match->node : nullptr;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::matchContainingLocation(Value location) const
    -> std::optional<SearchMatch> {
    const Value total = root().m_nodeTotalValue;
    if (location < m_minimumValue || total < location) return std::nullopt;
    if (location == total) {
        Node& last = lastNode();
        return SearchMatch{total - last.m_value, total, &last};
    }
    Value remaining = location;
    for (Node* node = m_root.get(); node;) {
        // Both children are fetched at once: which of them is needed is known only when one has arrived.
        __builtin_prefetch(node->right());
        if (node->m_left) {
            if (remaining < node->m_left->m_nodeTotalValue) {
                node = node->left();
                continue;
            }
            remaining = remaining - node->m_left->m_nodeTotalValue;
        }
        remaining = remaining - node->m_value;
        if (remaining < m_minimumValue)
            return SearchMatch{location - remaining - node->m_value, location - remaining, node};
        node = node->right();
    }
    fatalError("A location within the tree's total lies in none of its nodes.");
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::nodePosition(Value location) const -> std::optional<NodePosition> {
    const auto match = matchContainingLocation(location);
    if (!match) return std::nullopt;
    return NodePosition{match->location, match->node->index(), location - match->location,
                        match->node->m_value};
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::nodeAtIndex(std::int64_t index) const -> Node& {
    for (Node* node = m_root.get(); node;) {
        __builtin_prefetch(node->right());
        if (node->m_left) {
            if (index < node->m_left->m_nodeTotalCount) {
                node = node->left();
                continue;
            }
            index -= node->m_left->m_nodeTotalCount;
        }
        if (index == 0) return *node;
        --index;
        node = node->right();
    }
    fatalError("There is no node at this index.");
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::searchNodes(SearchQuery& query) const -> std::vector<SearchMatch> {
    std::vector<SearchMatch> matches;
    appendMatches(root(), m_minimumValue, query, matches);
    return matches;
}

// `location` is where the subtree starts. As deep as the tree: twice the logarithm at most.
template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::appendMatches(Node& node, Value location, SearchQuery& query,
                                                  std::vector<SearchMatch>& matches) const {
    if (node.m_left && query.wantsLeftSubtree(node)) appendMatches(*node.m_left, location, query, matches);
    if (node.m_left) location = location + node.m_left->m_nodeTotalValue;
    if (query.matches(node)) matches.push_back({location, location + node.m_value, &node});
    if (node.m_right && query.wantsRightSubtree(node))
        appendMatches(*node.m_right, location + node.m_value, query, matches);
}

} // namespace tessarine
