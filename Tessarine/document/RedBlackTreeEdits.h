#pragma once

// The operations of the tree that change it.

#include "Tessarine/document/RedBlackTree.h"

#include <new>
#include <utility>

namespace tessarine {

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::create(Value minimumValue, Value rootValue, Data rootData)
    -> std::shared_ptr<RedBlackTree> {
    struct Shareable : RedBlackTree {
        explicit Shareable(Value minimum)
            : RedBlackTree(minimum) {}
    };

    std::shared_ptr<RedBlackTree> tree = std::make_shared<Shareable>(minimumValue);
    tree->m_root = tree->makeNode(rootValue, std::move(rootData));
    return tree;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
RedBlackTree<ID, Value, Data>::~RedBlackTree() {
    m_pool->detachOwner();
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::construct(NodeSlabPool::Slot slot, Value value, Data data)
    -> NodeReference {
    return NodeReference::adopt(::new (slot.memory) Node(value, std::move(data), slot.index));
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::makeNode(Value value, Data data) -> NodeReference {
    return construct(m_pool->allocateInOrder(), value, std::move(data));
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::adopt(Node& parent, NodeReference Node::* link, NodeReference child) {
    if (child) child->m_parent = &parent;
    parent.*link = std::move(child);
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::rebuildBalanced(std::span<NodeReference> nodes) {
    rebuildBalanced(nodes.size(), [&](std::size_t index) { return std::move(nodes[index]); });
}

template <RedBlackTreeNodeID ID, class Value, class Data>
template <class NodeAt>
void RedBlackTree<ID, Value, Data>::rebuildBalanced(std::size_t count, NodeAt nodeAt) {
    if (count == 0) fatalError("A tree can't be built of no nodes.");
    int height = 0;
    for (std::size_t rest = count; rest > 0; rest /= 2)
        ++height;
    m_root = buildSubtree(0, count, height, nodeAt);
    m_root->m_isRed = false;
}

// Only the deepest level is red, so all black heights are equal as they come. As deep as the tree.
template <RedBlackTreeNodeID ID, class Value, class Data>
template <class NodeAt>
auto RedBlackTree<ID, Value, Data>::buildSubtree(std::size_t start, std::size_t end, int depth,
                                                 NodeAt& nodeAt) -> NodeReference {
    if (start == end) return {};
    const std::size_t middle = (start + end) / 2;
    NodeReference left = buildSubtree(start, middle, depth - 1, nodeAt);
    NodeReference node = nodeAt(middle);
    adopt(*node, &Node::m_left, std::move(left));
    adopt(*node, &Node::m_right, buildSubtree(middle + 1, end, depth - 1, nodeAt));
    node->m_isRed = depth == 1;
    updateAggregates(*node);
    return node;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
bool RedBlackTree<ID, Value, Data>::refreshTotals(Node& node) {
    std::int64_t count = 1;
    Value total = node.m_value;
    for (const Node* child : {node.left(), node.right()}) {
        if (!child) continue;
        count += child->m_nodeTotalCount;
        total = checkedSum(total, child->m_nodeTotalValue);
    }
    if (count == node.m_nodeTotalCount && total == node.m_nodeTotalValue) return false;
    node.m_nodeTotalCount = count;
    node.m_nodeTotalValue = total;
    return true;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::updateAggregates(Node& node) {
    if (!m_childrenUpdater) return updateTotals(node);
    bool hasChanged = true;
    for (Node* current = &node; current && hasChanged; current = current->m_parent) {
        hasChanged = refreshTotals(*current);
        hasChanged |= m_childrenUpdater->refreshAggregates(*current);
    }
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::updateTotals(Node& node) {
    for (Node* current = &node; current && refreshTotals(*current);)
        current = current->m_parent;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::insertNodeAfter(Value value, Data data, Node& existingNode)
    -> NodeReference {
    NodeReference inserted = construct(m_pool->allocate(), value, std::move(data));
    const bool isChild = !existingNode.m_right;
    Node& parent = isChild ? existingNode : leftmost(*existingNode.m_right);
    adopt(parent, isChild ? &Node::m_right : &Node::m_left, inserted);
    inserted->m_isRed = true;
    updateAggregates(parent);
    fixAfterInsert(*inserted);
    return inserted;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::fixAfterInsert(Node& inserted) {
    Node* node = &inserted;
    while (isRed(node->m_parent)) {
        Node* parent = node->m_parent;
        Node* grandparent = parent->m_parent;
        if (!grandparent) fatalError("A red node has no parent.");
        const bool parentIsLeft = grandparent->left() == parent;
        Node* uncle = parentIsLeft ? grandparent->right() : grandparent->left();
        if (isRed(uncle)) {
            parent->m_isRed = uncle->m_isRed = false;
            grandparent->m_isRed = true;
            node = grandparent;
            continue;
        }
        if ((parent->left() == node) != parentIsLeft) {
            rotateTowards(*parent, parentIsLeft);
            parent = node;
        }
        parent->m_isRed = false;
        grandparent->m_isRed = true;
        return rotateTowards(*grandparent, !parentIsLeft);
    }
    if (!node->m_parent) node->m_isRed = false;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::removeNode(Node& node) {
    if (node.m_left && node.m_right) return removeWithTwoChildren(node);
    const NodeReference removed(&node);
    Node* parent = node.m_parent;
    NodeReference& link = node.m_left ? node.m_left : node.m_right;
    Node* child = link.get();
    replaceNode(node, std::move(link));
    if (parent) updateAggregates(*parent);
    if (node.m_isRed) return;
    if (isRed(child))
        child->m_isRed = false;
    else if (parent)
        fixAfterRemove(child, parent);
}

// The nodes change places, never their contents: others know the nodes.
template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::removeWithTwoChildren(Node& node) {
    const NodeReference successor(&leftmost(*node.m_right));
    removeNode(*successor);
    const NodeReference removed = replaceNode(node, successor);
    adopt(*successor, &Node::m_left, std::move(node.m_left));
    adopt(*successor, &Node::m_right, std::move(node.m_right));
    successor->m_isRed = node.m_isRed;
    updateAggregates(*successor);
    if (successor->m_parent) updateAggregates(*successor->m_parent);
}

template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::siblingOf(const Node& parent, bool nodeIsLeft) const -> Node& {
    Node* sibling = nodeIsLeft ? parent.right() : parent.left();
    if (!sibling) fatalError("A black node has no sibling.");
    return *sibling;
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::fixAfterRemove(Node* node, Node* parent) {
    for (; parent; node = std::exchange(parent, parent->m_parent)) {
        const bool isLeft = parent->left() == node;
        const auto near = isLeft ? &Node::m_left : &Node::m_right;
        const auto far = isLeft ? &Node::m_right : &Node::m_left;
        Node* sibling = &siblingOf(*parent, isLeft);
        if (sibling->m_isRed) {
            parent->m_isRed = true;
            sibling->m_isRed = false;
            rotateTowards(*parent, isLeft);
            sibling = &siblingOf(*parent, isLeft);
        }
        if (!isRed(sibling->left()) && !isRed(sibling->right())) {
            sibling->m_isRed = true;
            if (!std::exchange(parent->m_isRed, false)) continue;
            return;
        }
        if (!isRed((sibling->*far).get())) {
            sibling->m_isRed = true;
            (sibling->*near)->m_isRed = false;
            rotateTowards(*sibling, !isLeft);
            sibling = &siblingOf(*parent, isLeft);
        }
        sibling->m_isRed = std::exchange(parent->m_isRed, false);
        if (sibling->*far) (sibling->*far)->m_isRed = false;
        return rotateTowards(*parent, isLeft);
    }
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::rotateLeft(Node& p) {
    if (!p.m_right) fatalError("Can't rotate left when p's right-hand side child is nil.");
    Node& q = *p.m_right;
    NodeReference lowered = replaceNode(p, std::move(p.m_right));
    adopt(p, &Node::m_right, std::move(q.m_left));
    adopt(q, &Node::m_left, std::move(lowered));
    updateAggregates(p);
}

template <RedBlackTreeNodeID ID, class Value, class Data>
void RedBlackTree<ID, Value, Data>::rotateRight(Node& p) {
    if (!p.m_left) fatalError("Can't rotate right when p's left-hand side child is nil.");
    Node& q = *p.m_left;
    NodeReference lowered = replaceNode(p, std::move(p.m_left));
    adopt(p, &Node::m_left, std::move(q.m_right));
    adopt(q, &Node::m_right, std::move(lowered));
    updateAggregates(p);
}

// Puts `replacement` where `replaced` hangs, and returns the ownership of `replaced`.
template <RedBlackTreeNodeID ID, class Value, class Data>
auto RedBlackTree<ID, Value, Data>::replaceNode(Node& replaced, NodeReference replacement) -> NodeReference {
    Node* parent = std::exchange(replaced.m_parent, nullptr);
    if (replacement) replacement->m_parent = parent;
    if (parent)
        return std::exchange(parent->left() == &replaced ? parent->m_left : parent->m_right,
                             std::move(replacement));
    if (m_root.get() != &replaced) return NodeReference(&replaced);
    if (!replacement) fatalError("The last node of a tree can't be removed.");
    return std::exchange(m_root, std::move(replacement));
}

} // namespace tessarine
