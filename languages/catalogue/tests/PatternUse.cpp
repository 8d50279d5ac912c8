#include "languages/catalogue/tests/PatternUse.h"

#include "Tessarine/syntax/TreeSitterTextPredicatesEvaluator.h"

#include <span>

namespace tessarine::languages {

namespace {

bool stands(const TreeSitterQuery& query, const TSQueryMatch& raw, const TextSnapshot& text) {
    std::vector<TreeSitterCapture> captures;
    for (const TSQueryCapture& capture : std::span(raw.captures, raw.capture_count))
        captures.emplace_back(query, TreeSitterNode(capture.node), capture.index, raw.pattern_index);
    std::vector<TreeSitterCapture> valid;
    appendValidCaptures(TreeSitterQueryMatch(std::move(captures)), text, valid);
    return !valid.empty();
}

} // namespace

void PatternUse::add(const TreeSitterLanguageLayer& layer, const TextSnapshot& text) {
    if (!layer.tree()) return;
    add(layer.language()->highlightsQuery.get(), layer.tree()->rootNode(), text);
    add(layer.language()->injectionsQuery.get(), layer.tree()->rootNode(), text);
    for (const TreeSitterLanguageLayer::Child& child : layer.childLanguageLayers())
        add(*child.layer, text);
}

void PatternUse::add(const TreeSitterQuery* query, TreeSitterNode node, const TextSnapshot& text) {
    if (!query) return;
    const std::unique_ptr<TSQueryCursor, decltype(&ts_query_cursor_delete)> cursor(ts_query_cursor_new(),
                                                                                   ts_query_cursor_delete);
    ts_query_cursor_exec(cursor.get(), query->pointer(), node.rawValue());
    for (TSQueryMatch match; ts_query_cursor_next_match(cursor.get(), &match);)
        if (stands(*query, match, text)) m_used[query].insert(match.pattern_index);
}

bool PatternUse::has(const TreeSitterQuery& query, std::uint32_t pattern) const {
    const auto used = m_used.find(&query);
    return used != m_used.end() && used->second.contains(pattern);
}

std::string patternSource(const TreeSitterQuery& query, const std::string& source, std::uint32_t index) {
    const std::uint32_t start = ts_query_start_byte_for_pattern(query.pointer(), index);
    const std::uint32_t end = ts_query_end_byte_for_pattern(query.pointer(), index);
    const std::string pattern = source.substr(start, end - start);
    std::string text;
    for (const char c : pattern.substr(0, pattern.find("\n;"))) // a comment behind it
        if (c != '\n' && (c != ' ' || text.empty() || text.back() != ' ')) text += c;
    return text;
}

} // namespace tessarine::languages
