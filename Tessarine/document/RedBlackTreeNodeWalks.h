#pragma once

// The operations of a node that walk: neighbours, sums of what stands before it, the end of its life.

#include "Tessarine/document/RedBlackTreeNode.h"

namespace tessarine {

template <RedBlackTreeNodeID ID, class Value, class Data>
template <class Sum, class OfSubtree, class OfNode>
Sum RedBlackTreeNode<ID, Value, Data>::sumBefore(Sum start, OfSubtree ofSubtree, OfNode ofNode) const {
    Sum sum = m_left ? ofSubtree(*m_left) : start;
    const RedBlackTreeNode* node = this;
    for (const RedBlackTreeNode* above = m_parent; above; node = above, above = above->m_parent) {
        if (above->right() != node) continue;
        if (above->m_left) sum += ofSubtree(*above->m_left);
        sum += ofNode(*above);
    }
    return sum;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
RedBlackTreeNode<ID, Value, Data>& RedBlackTreeNode<ID, Value, Data>::nextNode() {
    RedBlackTreeNode* node = this;
    if (node->m_right) {
        node = node->right();
        while (node->m_left)
            node = node->left();
        return *node;
    }
    while (node->m_parent && node->m_parent->right() == node)
        node = node->m_parent;
    return node->m_parent ? *node->m_parent : *node;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
RedBlackTreeNode<ID, Value, Data>& RedBlackTreeNode<ID, Value, Data>::previousNode() {
    RedBlackTreeNode* node = this;
    if (node->m_left) {
        node = node->left();
        while (node->m_right)
            node = node->right();
        return *node;
    }
    while (node->m_parent && node->m_parent->left() == node)
        node = node->m_parent;
    return node->m_parent ? *node->m_parent : *node;
}

// A loop without memory of its own: the nodes whose turn is still to come are linked by their parent links,
// which no one needs any more.
template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTreeNode<ID, Value, Data>::destroy(RedBlackTreeNode* first) {
    first->m_parent = nullptr;
    for (RedBlackTreeNode* dying = first; dying;) {
        RedBlackTreeNode* node = std::exchange(dying, dying->m_parent);
        releaseChild(node->m_left, node, dying);
        releaseChild(node->m_right, node, dying);
        const NodeSlabPool::Slot slot = node->slot();
        node->~RedBlackTreeNode();
        NodeSlabPool::release(slot, sizeof(RedBlackTreeNode));
    }
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTreeNode<ID, Value, Data>::releaseChild(Reference& link, const RedBlackTreeNode* node,
                                                     RedBlackTreeNode*& dying) {
    RedBlackTreeNode* child = link.disown();
    if (!child) return;
    if (child->m_parent == node) child->m_parent = nullptr;
    if (--child->m_referenceCount == 0) child->m_parent = std::exchange(dying, child);
}

} // namespace tessarine
