#include "Tessarine/syntax/InjectionsSearch.h"

#include "Tessarine/syntax/TreeSitterInjectedLanguageMapper.h"
#include "Tessarine/syntax/TreeSitterTextPredicatesEvaluator.h"

#include <algorithm>
#include <unordered_set>

namespace tessarine {

namespace {

// Two captures on one node make one child, the first.
void dropRepeatedNodes(std::vector<TreeSitterInjectedLanguage>& injections) {
    std::unordered_set<const void*> ids;
    ids.reserve(injections.size());
    std::erase_if(injections, [&](const auto& injection) { return !ids.insert(injection.id).second; });
}

// A code unit more on both sides: the library leaves out what only touches a range.
ByteRange rangeTouching(ByteInterval interval) {
    const ByteCount first = std::max<ByteCount>(interval.first - 2, 0);
    return {first, interval.last + 2 - first};
}

} // namespace

FoundInjections InjectionsSearch::found(TreeSitterQueryCursor& cursor) const {
    cursor.execute();
    FoundInjections found;
    std::vector<TreeSitterCapture> captures;
    for (TreeSitterQueryMatch match; cursor.nextMatch(match);) {
        appendValidCaptures(match, m_text, captures);
        if (!captures.empty() && captures.back().name() == "language") found.areIndependent = false;
    }
    found.injections = TreeSitterInjectedLanguageMapper(m_text).map(captures);
    dropRepeatedNodes(found.injections);
    return found;
}

FoundInjections InjectionsSearch::inWholeTree(const TreeSitterTree& tree) const {
    TreeSitterQueryCursor cursor(m_query, tree.rootNode(), m_limit);
    return found(cursor);
}

FoundInjections InjectionsSearch::near(ByteInterval interval, const TreeSitterTree& tree) const {
    TreeSitterQueryCursor cursor(m_query, tree.rootNode(), m_limit);
    cursor.setQueryRange(rangeTouching(interval));
    return found(cursor);
}

ByteInterval InjectionsSearch::grownToCaptures(ByteInterval interval, const TreeSitterTree& tree) const {
    TreeSitterQueryCursor cursor(m_query, tree.rootNode(), m_limit);
    cursor.setQueryRange(rangeTouching(interval));
    cursor.execute();
    ByteInterval grown = interval;
    for (TreeSitterQueryMatch match; cursor.nextMatch(match);)
        for (const TreeSitterCapture& capture : match.captures()) {
            grown.first = std::min(grown.first, capture.node().startByte());
            grown.last = std::max(grown.last, capture.node().endByte());
        }
    return grown;
}

} // namespace tessarine
