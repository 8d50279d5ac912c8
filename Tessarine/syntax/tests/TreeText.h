#pragma once

#include "Tessarine/syntax/TreeSitterTree.h"

#include <string>

namespace tessarine {

// All nodes of a tree with their types and byte ranges, one a line and indented, to compare trees by. Without
// recursion: trees may be deep.
inline std::string treeText(const TreeSitterTree& tree) {
    std::string text;
    TSTreeCursor cursor = ts_tree_cursor_new(tree.rootNode().rawValue());
    std::size_t depth = 0;
    for (bool isDone = false; !isDone;) {
        const TreeSitterNode node(ts_tree_cursor_current_node(&cursor));
        text += std::string(depth, ' ') + std::string(node.type().value_or("-")) + " " +
                node.byteRange().description() + (ts_node_is_missing(node.rawValue()) ? " missing\n" : "\n");
        if (ts_tree_cursor_goto_first_child(&cursor)) {
            ++depth;
            continue;
        }
        while (!isDone && !ts_tree_cursor_goto_next_sibling(&cursor)) {
            isDone = !ts_tree_cursor_goto_parent(&cursor);
            --depth;
        }
    }
    ts_tree_cursor_delete(&cursor);
    return text;
}

} // namespace tessarine
