#pragma once

#include "Tessarine/syntax/TreeSitterNode.h"

#include <tree_sitter/api.h>

namespace tessarine {

// Walks the children of a node, each step in constant time where asking a node for its next sibling or for a
// child by index begins with the first one. Borrows the node's tree.
class TreeSitterTreeCursor {
public:
    explicit TreeSitterTreeCursor(const TreeSitterNode& node)
        : m_cursor(ts_tree_cursor_new(node.rawValue())) {}

    TreeSitterTreeCursor(const TreeSitterTreeCursor&) = delete;
    TreeSitterTreeCursor& operator=(const TreeSitterTreeCursor&) = delete;

    ~TreeSitterTreeCursor() { ts_tree_cursor_delete(&m_cursor); }

    TreeSitterNode currentNode() const { return TreeSitterNode(ts_tree_cursor_current_node(&m_cursor)); }

    // Both tell whether there is one.
    bool goToFirstChild() { return ts_tree_cursor_goto_first_child(&m_cursor); }

    bool goToNextSibling() { return ts_tree_cursor_goto_next_sibling(&m_cursor); }

private:
    TSTreeCursor m_cursor;
};

} // namespace tessarine
