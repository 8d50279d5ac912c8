#include "Tessarine/document/search/ReplaceAll.h"

#include "Tessarine/document/search/MatchFinder.h"
#include "Tessarine/document/search/ReplacementStringParser.h"

#include <utility>

namespace tessarine {

ParsedReplacementString replacementFor(const SearchQuery& query, std::u16string_view replacement) {
    if (!query.isRegularExpression) return ParsedReplacementString::literal(replacement);
    ParsedReplacementString parsed{ReplacementStringParser(replacement).parse()};
    return parsed.hasPlaceholder() ? parsed : ParsedReplacementString::literal(replacement);
}

std::expected<BatchReplaceSet, SearchError> replacementsOfAll(const TextSnapshot& text,
                                                              const SearchQuery& query,
                                                              const ParsedReplacementString& replacement,
                                                              std::stop_token stop) {
    auto finder = MatchFinder::create(text, query, 0, std::move(stop));
    if (!finder) return std::unexpected(std::move(finder.error()));
    BatchReplaceSet set;
    while (true) {
        auto match = finder->next();
        if (!match) return std::unexpected(std::move(match.error()));
        if (!*match) return set;
        set.replacements.push_back({(*match)->range, replacement.string(**match, text)});
    }
}

} // namespace tessarine
