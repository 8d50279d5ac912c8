#pragma once

#include <concepts>
#include <cstddef>
#include <functional>

namespace tessarine {

// What identifies a node: hashable, comparable, and fresh (never the same twice) when made from nothing.
template <class ID>
concept RedBlackTreeNodeID =
    std::default_initializable<ID> && std::equality_comparable<ID> && requires(const ID& id) {
        { std::hash<ID>()(id) } -> std::convertible_to<std::size_t>;
    };

} // namespace tessarine
