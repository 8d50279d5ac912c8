#pragma once

#include "Tessarine/document/RedBlackTree.h"
#include "Tessarine/layout/LineFragmentNodeData.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace tessarine {

// The rows of one line by their heights and by their texts.
//
// Invariants: a node a row, in their order, or one node without a row; see check(). Cost: O(log n) for each
// row that is entered, taken away or found. Main thread.
class LineFragmentTree {
public:
    using Tree = RedBlackTree<LineFragmentNodeID, std::int64_t, LineFragmentNodeData>;

    LineFragmentTree() { reset(); }

    const Tree& tree() const { return *m_tree; }

    // Of no rows.
    void reset();

    // Each at its index: in place of the row that is there, else behind the last. Ascending; rows behind the
    // last of them must lie where they lay.
    void enter(std::span<const LineFragmentReference> lineFragments);

    // Takes away all others.
    void keepFirst(std::int64_t count);

    // Those that a range of heights meets, in their order.
    LineFragments lineFragmentsInFrame(double minY, double maxY) const;

    // Those that hold a part of a range of the line.
    LineFragments lineFragmentsInRange(const TextRange& range) const;

    // What is broken, or nothing. O(n): for tests.
    std::optional<std::string> check() const;

private:
    LineFragments lineFragmentsFoundBy(Tree::SearchQuery& query) const;

    std::shared_ptr<Tree> m_tree;
};

} // namespace tessarine
