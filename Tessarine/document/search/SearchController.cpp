#include "Tessarine/document/search/SearchController.h"

#include "Tessarine/base/UUID.h"
#include "Tessarine/document/search/MatchFinder.h"
#include "Tessarine/document/search/ReplaceAll.h"

#include <cstdio>

namespace tessarine {

namespace {

std::vector<SearchMatch> matchesOrConsoleLine(const TextSnapshot& text, const SearchQuery& query) {
    auto matches = allMatches(text, query);
    if (matches) return std::move(*matches);
    std::printf("⚠️ %s\n", matches.error().message.c_str());
    return {};
}

TextLocation locationOf(LinePosition position) {
    return {position.row, position.column};
}

std::optional<SearchResult> resultOf(TextRange range, const SearchControllerDelegate& delegate) {
    const auto start = delegate.linePosition(range.location);
    const auto end = delegate.linePosition(range.limit());
    if (!start || !end) return std::nullopt;
    return SearchResult{freshUUID(), range, locationOf(*start), locationOf(*end)};
}

} // namespace

template <class Body>
void SearchController::forEachResult(const SearchQuery& query, Body&& body) const {
    const TextSnapshot text = m_stringView->snapshot();
    const std::vector<SearchMatch> matches = matchesOrConsoleLine(text, query);
    const auto delegate = m_delegate.lock();
    if (!delegate) return;
    for (const SearchMatch& match : matches)
        if (auto result = resultOf(match.range, *delegate)) body(match, std::move(*result), text);
}

std::vector<SearchResult> SearchController::search(const SearchQuery& query) const {
    std::vector<SearchResult> results;
    forEachResult(query, [&](const SearchMatch&, SearchResult result, const TextSnapshot&) {
        results.push_back(std::move(result));
    });
    return results;
}

std::vector<SearchReplaceResult> SearchController::search(const SearchQuery& query,
                                                          std::u16string_view replacementString) const {
    return search(query, replacementFor(query, replacementString));
}

std::vector<SearchReplaceResult> SearchController::search(const SearchQuery& query,
                                                          const ParsedReplacementString& replacement) const {
    std::vector<SearchReplaceResult> results;
    forEachResult(query, [&](const SearchMatch& match, SearchResult result, const TextSnapshot& text) {
        results.push_back({std::move(result.id), result.range, result.startLocation, result.endLocation,
                           replacement.string(match, text)});
    });
    return results;
}

} // namespace tessarine
