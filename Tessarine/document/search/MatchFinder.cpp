#include "Tessarine/document/search/MatchFinder.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/search/LiteralMatches.h"
#include "Tessarine/document/search/RegexMatches.h"
#include "Tessarine/document/search/RegexPrefix.h"

#include <limits>

namespace tessarine {

namespace {

class NoMatches final : public MatchEngine {
public:
    Next next() override { return std::nullopt; }
};

bool isLiteral(const SearchQuery& query) {
    return !query.isRegularExpression || query.text.find_first_of(regexMetacharacters) == query.text.npos;
}

std::expected<std::unique_ptr<MatchEngine>, SearchError>
engineFor(const TextSnapshot& text, const SearchQuery& query, std::int64_t location, std::stop_token stop) {
    if (query.text.empty()) return std::make_unique<NoMatches>();
    if (!isLiteral(query)) return RegexMatches::create(text, query, location, std::move(stop));
    return std::make_unique<LiteralMatches>(text, LiteralPattern(query.text, query.isCaseSensitive), location,
                                            std::move(stop));
}

} // namespace

std::expected<MatchFinder, SearchError> MatchFinder::create(const TextSnapshot& text,
                                                            const SearchQuery& query, std::int64_t location,
                                                            std::stop_token stop) {
    if (location < 0 || location > text.length()) fatalError("A location lies outside of the text.");
    auto engine = engineFor(text, query, location, std::move(stop));
    if (!engine) return std::unexpected(std::move(engine.error()));
    return MatchFinder(std::move(*engine));
}

std::expected<std::vector<SearchMatch>, SearchError> MatchFinder::next(std::size_t count) {
    std::vector<SearchMatch> matches;
    while (matches.size() < count) {
        auto match = next();
        if (!match) return std::unexpected(std::move(match.error()));
        if (!*match) break;
        matches.push_back(std::move(**match));
    }
    return matches;
}

std::expected<std::vector<SearchMatch>, SearchError>
allMatches(const TextSnapshot& text, const SearchQuery& query, std::stop_token stop) {
    auto finder = MatchFinder::create(text, query, 0, std::move(stop));
    if (!finder) return std::unexpected(std::move(finder.error()));
    return finder->next(std::numeric_limits<std::size_t>::max());
}

} // namespace tessarine
