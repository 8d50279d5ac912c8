#pragma once

#include "Tessarine/document/RedBlackTreeNode.h"

#include <memory>
#include <utility>

namespace tessarine {

// Hands out the nodes of a tree in document order, and keeps the tree alive. An edit of the tree ends its
// use.
template <class Node>
class RedBlackTreeIterator {
public:
    RedBlackTreeIterator(std::shared_ptr<typename Node::Tree> tree, Node* first)
        : m_tree(std::move(tree))
        , m_node(first) {}

    // The next node, or null at the end of the sequence.
    Node* next() {
        Node* handedOut = m_node;
        if (m_node) step();
        return handedOut;
    }

private:
    void step() {
        if (m_node->right()) {
            m_node = m_node->right();
            while (m_node->left())
                m_node = m_node->left();
            return;
        }
        while (m_node->parent() && m_node->parent()->right() == m_node)
            m_node = m_node->parent();
        m_node = m_node->parent();
    }

    std::shared_ptr<typename Node::Tree> m_tree;
    Node* m_node;
};

} // namespace tessarine
