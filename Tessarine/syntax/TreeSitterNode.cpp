#include "Tessarine/syntax/TreeSitterNode.h"

#include "Tessarine/syntax/Checked32.h"

#include <utility>

namespace tessarine {

std::optional<TreeSitterNode> TreeSitterNode::unlessNull(TSNode node) {
    if (ts_node_is_null(node)) return std::nullopt;
    return TreeSitterNode(node);
}

std::optional<std::string_view> TreeSitterNode::type() const {
    const char* type = ts_node_is_null(m_rawValue) ? nullptr : ts_node_type(m_rawValue);
    if (!type) return std::nullopt;
    return type;
}

TreeSitterTextRange TreeSitterNode::textRange() const {
    return TreeSitterTextRange({.start_point = ts_node_start_point(m_rawValue),
                                .end_point = ts_node_end_point(m_rawValue),
                                .start_byte = ts_node_start_byte(m_rawValue),
                                .end_byte = ts_node_end_byte(m_rawValue)});
}

std::optional<TreeSitterNode> TreeSitterNode::child(std::int64_t index) const {
    if (!std::in_range<std::uint32_t>(index)) return std::nullopt;
    return unlessNull(ts_node_child(m_rawValue, static_cast<std::uint32_t>(index)));
}

std::optional<TreeSitterNode> TreeSitterNode::descendant(TreeSitterTextPoint start,
                                                         TreeSitterTextPoint end) const {
    return unlessNull(ts_node_descendant_for_point_range(m_rawValue, start.rawValue(), end.rawValue()));
}

std::string TreeSitterNode::debugDescription() const {
    return "[TreeSitterNode startByte=" + startByte().description() + " endByte=" + endByte().description() +
           " startPoint=" + startPoint().debugDescription() + " endPoint=" + endPoint().debugDescription() +
           "]";
}

} // namespace tessarine
