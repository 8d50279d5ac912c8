#pragma once

#include "Tessarine/document/CheckedArithmetic.h"
#include "Tessarine/document/RedBlackTreeChildrenUpdater.h"
#include "Tessarine/document/RedBlackTreeIterator.h"
#include "Tessarine/document/RedBlackTreeNode.h"
#include "Tessarine/document/RedBlackTreeNodePosition.h"
#include "Tessarine/document/RedBlackTreeSearchMatch.h"
#include "Tessarine/document/RedBlackTreeSearchQuery.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tessarine {

// A sequence of nodes that knows where each of them starts and how many stand before it.
//
// A node's place is given by the node it was inserted behind; keys are never compared. Locations run from
// the minimum value to the root's total; a location on the boundary of two nodes belongs to the later one,
// and the end of the whole belongs to the last node.
// Invariants: those of a red-black tree; every node's totals are those of its subtree. See check().
// Ownership: the tree owns its nodes; whoever wants to keep one beyond the next edit holds a reference.
// Thread: a tree, its nodes and their references belong to one thread at a time. Cost: O(log n) and no
// allocation unless said otherwise; an insertion allocates one node, data and count included.
// A broken tree, a bad index and an overflow stop the program.
template <RedBlackTreeNodeID NodeID, class NodeValue, class NodeData>
class RedBlackTree : public std::enable_shared_from_this<RedBlackTree<NodeID, NodeValue, NodeData>> {
public:
    using Node = RedBlackTreeNode<NodeID, NodeValue, NodeData>;
    using NodeReference = typename Node::Reference;
    using Iterator = RedBlackTreeIterator<Node>;
    using ChildrenUpdater = RedBlackTreeChildrenUpdater<Node>;
    using NodePosition = RedBlackTreeNodePosition<NodeValue>;
    using SearchMatch = RedBlackTreeSearchMatch<Node>;
    using SearchQuery = RedBlackTreeSearchQuery<NodeID, NodeValue, NodeData>;

    // A tree of one black node.
    static std::shared_ptr<RedBlackTree> create(NodeValue minimumValue, NodeValue rootValue,
                                                NodeData rootData);

    RedBlackTree(const RedBlackTree&) = delete;
    RedBlackTree& operator=(const RedBlackTree&) = delete;
    ~RedBlackTree();

    Node& root() const { return *m_root; }

    NodeValue minimumValue() const { return m_minimumValue; }

    void setChildrenUpdater(std::unique_ptr<ChildrenUpdater> updater) {
        m_childrenUpdater = std::move(updater);
    }

    Node& firstNode() const { return leftmost(root()); }

    Node& lastNode() const { return rightmost(root()); }

    Iterator iterator() { return Iterator(this->shared_from_this(), &firstNode()); }

    // The node that holds the location; null outside of [minimumValue, root total].
    Node* nodeContainingLocation(NodeValue location) const;

    // The same node with its start and end.
    std::optional<SearchMatch> matchContainingLocation(NodeValue location) const;

    std::optional<NodePosition> nodePosition(NodeValue location) const;

    // Requires 0 <= index < count.
    Node& nodeAtIndex(std::int64_t index) const;

    // In document order. Visits only the subtrees that the query wants.
    std::vector<SearchMatch> searchNodes(SearchQuery& query) const;

    // A black node that is in no tree yet, for rebuildBalanced(). Nodes made in a row lie in a row.
    NodeReference makeNode(NodeValue value, NodeData data);

    // Makes `nodes`, fresh and at least one, the whole tree. Takes them out of the span. O(n).
    void rebuildBalanced(std::span<NodeReference> nodes);

    // The same of `count` nodes that nodeAt(index) makes, one after the other in document order: each is
    // still in the cache when its neighbours are linked to it.
    template <class NodeAt>
    void rebuildBalanced(std::size_t count, NodeAt nodeAt);

    // Returns the new node, which comes directly behind the existing one.
    NodeReference insertNodeAfter(NodeValue value, NodeData data, Node& existingNode);

    // The node is cut off from all others; it dies unless someone holds it.
    void removeNode(Node& node);

    // Re-establishes the totals of the node and, as long as they change, of those above it. To be called
    // when its value or what the updater reads has changed.
    void updateAggregates(Node& node);

    // What is broken, or nothing. O(n): for tests.
    std::optional<std::string> check() const;

private:
    explicit RedBlackTree(NodeValue minimumValue)
        : m_minimumValue(minimumValue)
        , m_pool(NodeSlabPool::create(sizeof(Node), this)) {}

    static Node& leftmost(Node& node);
    static Node& rightmost(Node& node);

    static bool isRed(const Node* node) { return node && node->m_isRed; }

    void appendMatches(Node& node, NodeValue location, SearchQuery& query,
                       std::vector<SearchMatch>& matches) const;

    NodeReference construct(NodeSlabPool::Slot slot, NodeValue value, NodeData data);
    template <class NodeAt>
    NodeReference buildSubtree(std::size_t start, std::size_t end, int depth, NodeAt& nodeAt);
    static void adopt(Node& parent, NodeReference Node::* link, NodeReference child);
    static bool refreshTotals(Node& node);
    void updateTotals(Node& node);

    void fixAfterInsert(Node& inserted);
    void fixAfterRemove(Node* node, Node* parent);
    Node& siblingOf(const Node& parent, bool nodeIsLeft) const;

    void rotateTowards(Node& parent, bool left) { left ? rotateLeft(parent) : rotateRight(parent); }

    void removeWithTwoChildren(Node& node);
    void rotateLeft(Node& p);
    void rotateRight(Node& p);
    NodeReference replaceNode(Node& replaced, NodeReference replacement);

    std::optional<std::string> checkSubtree(const Node& node, int& blackHeight) const;

    const NodeValue m_minimumValue;
    std::unique_ptr<ChildrenUpdater> m_childrenUpdater;
    const std::shared_ptr<NodeSlabPool> m_pool;
    NodeReference m_root;
};

} // namespace tessarine

#include "Tessarine/document/RedBlackTreeChecks.h"
#include "Tessarine/document/RedBlackTreeEdits.h"
#include "Tessarine/document/RedBlackTreeSearches.h"
