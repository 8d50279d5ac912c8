#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/search/MatchEngine.h"
#include "Tessarine/document/search/SearchQuery.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <memory>
#include <stop_token>
#include <utility>
#include <vector>

namespace tessarine {

// The matches of a query in a text, one after the other or in pieces, as far as somebody wants them: for the
// first screen at once and the rest later, or on another thread. They do not overlap, and none is empty.
//
// Literal queries are found by a scan of our own, exactly where a regular expression with all characters
// quoted would find them; the rest by ICU. The text is not copied.
// Thread: each finder one at a time, whichever it is; it shares the snapshot, so the document may change.
class MatchFinder {
public:
    // Matches that start at `location` or behind; what stands before it is still looked back at. Requires
    // 0 <= location <= length. Once the token is told to stop, a search in progress soon ends with an error.
    static std::expected<MatchFinder, SearchError> create(const TextSnapshot& text, const SearchQuery& query,
                                                          std::int64_t location = 0,
                                                          std::stop_token stop = {});

    // The next match, or nothing at the end. After an error there is no next.
    MatchEngine::Next next() { return m_engine->next(); }

    // Up to `count` further matches; fewer at the end only. On an error those found before it are lost.
    std::expected<std::vector<SearchMatch>, SearchError> next(std::size_t count);

private:
    explicit MatchFinder(std::unique_ptr<MatchEngine> engine)
        : m_engine(std::move(engine)) {}

    std::unique_ptr<MatchEngine> m_engine;
};

// All matches of a query.
std::expected<std::vector<SearchMatch>, SearchError>
allMatches(const TextSnapshot& text, const SearchQuery& query, std::stop_token stop = {});

} // namespace tessarine
