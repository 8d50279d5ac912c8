#pragma once

#include "Tessarine/syntax/TreeSitterNode.h"

#include <cstddef>
#include <vector>

namespace tessarine {

// A node and the nodes that hold it, found in one walk from the root: each question for a parent would be
// such a walk. Borrows the tree.
class TreeSitterNodePath {
public:
    explicit TreeSitterNodePath(const TreeSitterNode& node);

    // The node itself first, the root last.
    std::size_t size() const { return m_nodes.size(); }

    const TreeSitterNode& operator[](std::size_t levelsUp) const { return m_nodes[size() - 1 - levelsUp]; }

private:
    std::vector<TreeSitterNode> m_nodes; // the root first
};

} // namespace tessarine
