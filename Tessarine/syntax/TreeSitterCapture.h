#pragma once

#include "Tessarine/document/ByteRange.h"
#include "Tessarine/syntax/TreeSitterNode.h"
#include "Tessarine/syntax/TreeSitterQuery.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// One capture of one match. A small value that borrows its query and its tree.
class TreeSitterCapture {
public:
    TreeSitterCapture(const TreeSitterQuery& query, TreeSitterNode node, std::uint32_t index,
                      std::uint32_t patternIndex)
        : m_query(&query)
        , m_node(node)
        , m_byteRange(node.byteRange())
        , m_index(index)
        , m_patternIndex(patternIndex) {}

    const TreeSitterNode& node() const { return m_node; }

    std::uint32_t index() const { return m_index; }

    std::string_view name() const { return m_query->captureName(m_index); }

    const ByteRange& byteRange() const { return m_byteRange; }

    // What the pattern sets with "set!".
    const std::map<std::string, std::string, std::less<>>& properties() const { return meaning().properties; }

    const std::vector<TreeSitterTextPredicate>& textPredicates() const { return meaning().textPredicates; }

    std::int32_t nameComponentCount() const { return m_query->nameComponentCount(m_index); }

    std::string debugDescription() const;

private:
    const TreeSitterPatternMeaning& meaning() const { return m_query->meaning(m_patternIndex); }

    const TreeSitterQuery* m_query;
    TreeSitterNode m_node;
    ByteRange m_byteRange;
    std::uint32_t m_index;
    std::uint32_t m_patternIndex;
};

} // namespace tessarine
