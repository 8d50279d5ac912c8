#pragma once

#include "Tessarine/syntax/TreeSitterInputEdit.h"
#include "Tessarine/syntax/TreeSitterNode.h"
#include "Tessarine/syntax/TreeSitterTextRange.h"

#include <memory>
#include <string>
#include <tree_sitter/api.h>
#include <vector>

namespace tessarine {

// The syntax tree of one parse. A tree that is not edited any more may be read, and copied, on any number of
// threads at once. The last owner frees it.
class TreeSitterTree {
public:
    using Reference = std::shared_ptr<const TreeSitterTree>;

    // Takes over the handle.
    explicit TreeSitterTree(TSTree* pointer)
        : m_pointer(pointer) {}

    const TSTree* pointer() const { return m_pointer.get(); }

    TreeSitterNode rootNode() const { return TreeSitterNode(ts_tree_root_node(pointer())); }

    // A tree of the same nodes: it shares them and copies what is edited later. O(1).
    std::shared_ptr<TreeSitterTree> copy() const;

    // Moves what stands behind the edit and marks what it touched, for a reparse. All nodes become invalid.
    void apply(const TreeSitterInputEdit& edit);

    // Where the newer tree, parsed on the basis of this one, has another structure. O(tree) in the worst
    // case.
    std::vector<TreeSitterTextRange> rangesChanged(const TreeSitterTree& newer) const;

    std::string debugDescription() const;

private:
    struct Delete {
        void operator()(TSTree* tree) const { ts_tree_delete(tree); }
    };

    std::unique_ptr<TSTree, Delete> m_pointer;
};

} // namespace tessarine
