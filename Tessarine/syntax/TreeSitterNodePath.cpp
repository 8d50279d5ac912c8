#include "Tessarine/syntax/TreeSitterNodePath.h"

namespace tessarine {

TreeSitterNodePath::TreeSitterNodePath(const TreeSitterNode& node) {
    const TSNode target = node.rawValue();
    TSNode next = ts_tree_root_node(target.tree);
    for (; !ts_node_is_null(next) && next.id != target.id; next = ts_node_child_with_descendant(next, target))
        m_nodes.emplace_back(next);
    m_nodes.push_back(node);
}

} // namespace tessarine
