#include "Tessarine/syntax/TreeSitterTree.h"

#include <cstdlib>

namespace tessarine {

std::shared_ptr<TreeSitterTree> TreeSitterTree::copy() const {
    return std::make_shared<TreeSitterTree>(ts_tree_copy(pointer()));
}

void TreeSitterTree::apply(const TreeSitterInputEdit& edit) {
    const TSInputEdit rawValue = edit.rawValue();
    ts_tree_edit(m_pointer.get(), &rawValue);
}

std::vector<TreeSitterTextRange> TreeSitterTree::rangesChanged(const TreeSitterTree& newer) const {
    struct Free {
        void operator()(TSRange* ranges) const { std::free(ranges); } // NOLINT: the parser allocated it
    };

    std::uint32_t count = 0;
    const std::unique_ptr<TSRange, Free> ranges(
        ts_tree_get_changed_ranges(pointer(), newer.pointer(), &count));
    return {ranges.get(), ranges.get() + count};
}

std::string TreeSitterTree::debugDescription() const {
    return "[TreeSitterTree rootNode=" + rootNode().debugDescription() + "]";
}

} // namespace tessarine
