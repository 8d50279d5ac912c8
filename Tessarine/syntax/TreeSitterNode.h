#pragma once

#include "Tessarine/document/ByteRange.h"
#include "Tessarine/syntax/TreeSitterTextPoint.h"
#include "Tessarine/syntax/TreeSitterTextRange.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tree_sitter/api.h>

namespace tessarine {

// A node of a syntax tree. It borrows the tree: ask nothing of it when the tree has gone or was edited.
// Equality and hash are those of the id, an address inside of the tree: they tell nodes of one tree, and of a
// tree and its successor, apart; a node that a reparse made anew has another one.
class TreeSitterNode {
public:
    explicit TreeSitterNode(TSNode rawValue)
        : m_rawValue(rawValue) {}

    TSNode rawValue() const { return m_rawValue; }

    const void* id() const { return m_rawValue.id; }

    // Lives as long as the language.
    std::optional<std::string_view> type() const;

    ByteCount startByte() const { return ts_node_start_byte(m_rawValue); }

    ByteCount endByte() const { return ts_node_end_byte(m_rawValue); }

    ByteRange byteRange() const { return {startByte(), endByte() - startByte()}; }

    TreeSitterTextPoint startPoint() const { return TreeSitterTextPoint(ts_node_start_point(m_rawValue)); }

    TreeSitterTextPoint endPoint() const { return TreeSitterTextPoint(ts_node_end_point(m_rawValue)); }

    TreeSitterTextRange textRange() const;

    std::optional<TreeSitterNode> parent() const { return unlessNull(ts_node_parent(m_rawValue)); }

    std::optional<TreeSitterNode> nextSibling() const { return unlessNull(ts_node_next_sibling(m_rawValue)); }

    std::int64_t childCount() const { return ts_node_child_count(m_rawValue); }

    std::optional<TreeSitterNode> child(std::int64_t index) const;

    // The smallest node that spans both points.
    std::optional<TreeSitterNode> descendant(TreeSitterTextPoint start, TreeSitterTextPoint end) const;

    std::string debugDescription() const;

    friend bool operator==(const TreeSitterNode& a, const TreeSitterNode& b) { return a.id() == b.id(); }

private:
    static std::optional<TreeSitterNode> unlessNull(TSNode node);

    TSNode m_rawValue;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::TreeSitterNode> {
    std::size_t operator()(const tessarine::TreeSitterNode& node) const noexcept {
        return std::hash<const void*>()(node.id());
    }
};
