#pragma once

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/NodeSlabPool.h"
#include "Tessarine/document/RedBlackTreeNodeColor.h"
#include "Tessarine/document/RedBlackTreeNodeID.h"
#include "Tessarine/document/RedBlackTreeNodeReference.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace tessarine {

template <RedBlackTreeNodeID NodeID, class NodeValue, class NodeData>
class RedBlackTree;

// One element of a RedBlackTree: a value (a length or a height), data, and the totals of its subtree.
//
// Ownership: shared, see RedBlackTreeNodeReference; the tree owns the root and each node its children. A
// node may outlive its tree or its place in it, but is then not to be asked for what needs the tree.
// Equality and hash are the id's. The data is a base, not a member: it leads the node in memory, beside the
// links that a search reads, and finds its node without a pointer.
template <RedBlackTreeNodeID ID, class NodeValue, class NodeData>
class RedBlackTreeNode : private NodeData {
public:
    using NodeID = ID;
    using Value = NodeValue;
    using Data = NodeData;
    using Tree = RedBlackTree<ID, NodeValue, NodeData>;
    using Reference = RedBlackTreeNodeReference<RedBlackTreeNode>;

    RedBlackTreeNode(const RedBlackTreeNode&) = delete;
    RedBlackTreeNode& operator=(const RedBlackTreeNode&) = delete;

    const ID& id() const { return m_id; }

    // The sum of the values, and the number, of the nodes of this subtree.
    NodeValue nodeTotalValue() const { return m_nodeTotalValue; }

    std::int64_t nodeTotalCount() const { return m_nodeTotalCount; }

    NodeValue value() const { return m_value; }

    // To be followed by updateAggregates() of the tree.
    void setValue(NodeValue value) { m_value = value; }

    RedBlackTreeNode* left() const { return m_left.get(); }

    RedBlackTreeNode* right() const { return m_right.get(); }

    // Null at the root and on a removed node.
    RedBlackTreeNode* parent() const { return m_parent; }

    RedBlackTreeNodeColor color() const {
        return m_isRed ? RedBlackTreeNodeColor::red : RedBlackTreeNodeColor::black;
    }

    NodeData& data() { return *this; }

    const NodeData& data() const { return *this; }

    // The node that holds `data`, which must be a node's.
    static RedBlackTreeNode& holding(NodeData& data) { return static_cast<RedBlackTreeNode&>(data); }

    static const RedBlackTreeNode& holding(const NodeData& data) {
        return static_cast<const RedBlackTreeNode&>(data);
    }

    // Stops the program if the tree is gone.
    Tree& tree() const {
        void* owner = NodeSlabPool::poolOf(slot(), sizeof(RedBlackTreeNode)).owner();
        if (!owner) fatalError("Accessing tree after it has been deallocated.");
        return *static_cast<Tree*>(owner);
    }

    // Where the node starts: the tree's minimum value and the values of all nodes before it. O(log n).
    NodeValue location() const;

    // How many nodes stand before it. O(log n).
    std::int64_t index() const;

    // The sum of something over all nodes before this one. `ofSubtree` and `ofNode` tell what a whole subtree
    // and what a single node add; `start` stands in for an absent left subtree. O(log n).
    template <class Sum, class OfSubtree, class OfNode>
    Sum sumBefore(Sum start, OfSubtree ofSubtree, OfNode ofNode) const;

    // The neighbour in document order. There is none behind the last and before the first node: then the
    // result is the root. Compare with the last or first node before asking.
    RedBlackTreeNode& nextNode();
    RedBlackTreeNode& previousNode();

    std::string description() const {
        return "[RedBlackTreeNode index=" + std::to_string(index()) +
               " location=" + std::to_string(location()) +
               " nodeTotalCount=" + std::to_string(m_nodeTotalCount) + "]";
    }

    friend bool operator==(const RedBlackTreeNode& a, const RedBlackTreeNode& b) { return a.m_id == b.m_id; }

private:
    friend Tree;
    friend Reference;

    RedBlackTreeNode(NodeValue value, NodeData data, std::uint16_t slotIndex)
        : NodeData(std::move(data))
        , m_nodeTotalValue(value)
        , m_value(value)
        , m_slotIndex(slotIndex) {}

    ~RedBlackTreeNode() = default;

    NodeSlabPool::Slot slot() const { return {const_cast<RedBlackTreeNode*>(this), m_slotIndex}; }

    void retain() { ++m_referenceCount; }

    void release() {
        if (--m_referenceCount == 0) destroy(this);
    }

    static void destroy(RedBlackTreeNode* first);
    static void releaseChild(Reference& link, const RedBlackTreeNode* node, RedBlackTreeNode*& dying);

    // What a search reads comes first: it then lies in one or two cache lines.
    Reference m_left;
    Reference m_right;
    NodeValue m_nodeTotalValue;
    NodeValue m_value;
    std::int64_t m_nodeTotalCount = 1;
    RedBlackTreeNode* m_parent = nullptr;
    const ID m_id;
    std::uint32_t m_referenceCount = 1; // the maker's
    const std::uint16_t m_slotIndex;
    bool m_isRed = false;
};

} // namespace tessarine

template <class ID, class Value, class Data>
struct std::hash<tessarine::RedBlackTreeNode<ID, Value, Data>> {
    std::size_t operator()(const tessarine::RedBlackTreeNode<ID, Value, Data>& node) const noexcept {
        return std::hash<ID>()(node.id());
    }
};

#include "Tessarine/document/RedBlackTreeNodeWalks.h"
