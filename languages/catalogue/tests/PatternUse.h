#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/TreeSitterLanguageLayer.h"
#include "Tessarine/syntax/TreeSitterQuery.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace tessarine::languages {

// Which patterns of which queries have a match that stands, in the layers of any number of texts.
class PatternUse {
public:
    void add(const TreeSitterLanguageLayer& layer, const TextSnapshot& text);

    bool has(const TreeSitterQuery& query, std::uint32_t pattern) const;

private:
    void add(const TreeSitterQuery* query, TreeSitterNode node, const TextSnapshot& text);

    std::map<const TreeSitterQuery*, std::set<std::uint32_t>> m_used;
};

// The source of a pattern, in one line.
std::string patternSource(const TreeSitterQuery& query, const std::string& source, std::uint32_t index);

} // namespace tessarine::languages
