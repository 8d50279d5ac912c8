#pragma once

namespace tessarine {

// A node that a search found. The node is the tree's: it may die with the next edit unless it is retained.
template <class Node>
struct RedBlackTreeSearchMatch {
    typename Node::Value location; // where the node starts
    typename Node::Value value;    // where it ends: its start plus its value, not its length
    Node* node;
};

} // namespace tessarine
