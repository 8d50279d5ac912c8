#pragma once

#include <cstdint>

namespace tessarine {

// Where a searched location lies: in the node at `index`, `offset` behind the node's start.
template <class NodeValue>
struct RedBlackTreeNodePosition {
    NodeValue nodeStartLocation;
    std::int64_t index;
    NodeValue offset;
    NodeValue value; // the node's own

    friend bool operator==(const RedBlackTreeNodePosition&, const RedBlackTreeNodePosition&) = default;
};

} // namespace tessarine
