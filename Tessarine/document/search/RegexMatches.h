#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/search/LiteralMatches.h"
#include "Tessarine/document/search/MatchEngine.h"
#include "Tessarine/document/search/SearchQuery.h"

#include <cstdint>
#include <expected>
#include <memory>
#include <stop_token>
#include <unicode/regex.h>

namespace tessarine {

// The matches of a pattern as ICU's regular expressions find them, over the text where it lies. Where all
// matches begin with the same literal and it is rare, ICU is asked only where that stands.
//
// Bounds: a search from one match to the next may take a number of steps that grows with the text, and so
// much memory to backtrack; then it is an error. The stop token is looked at every 10,000 steps and every
// 1,024 code units; with a token that can stop, a search is a little slower.
class RegexMatches final : public MatchEngine {
public:
    // Matches that start at `location` or behind.
    static std::expected<std::unique_ptr<MatchEngine>, SearchError>
    create(const TextSnapshot& text, const SearchQuery& query, std::int64_t location, std::stop_token stop);

    Next next() override;

private:
    RegexMatches(std::unique_ptr<icu::RegexPattern> pattern, std::unique_ptr<icu::RegexMatcher> matcher,
                 std::stop_token stop);

    void start(const TextSnapshot& text, const SearchQuery& query, std::int64_t location, UErrorCode& status);

    bool find(UErrorCode& status);
    bool findBehindPrefix(UErrorCode& status);
    bool findFrom(std::int64_t location, std::int32_t steps, UErrorCode& status);
    bool findNext(UErrorCode& status);
    bool matchesAt(std::int64_t location, std::int32_t steps, UErrorCode& status);
    void beginSteps(std::int32_t steps, UErrorCode& status);

    SearchMatch match(UErrorCode& status) const;
    SearchError error(UErrorCode status) const;

    static UBool matchGoesOn(const void* context, std::int32_t steps);
    static UBool findGoesOn(const void* context, std::int64_t location);

    const std::unique_ptr<icu::RegexPattern> m_pattern;
    const std::unique_ptr<icu::RegexMatcher> m_matcher;
    const std::stop_token m_stop;
    std::unique_ptr<LiteralMatches> m_prefixes; // null where matches have no prefix in common
    std::int64_t m_location = 0;                // the end of the last match; where to start
    bool m_hasStarted = false;
    std::int32_t m_stepsOfFind = 0;
    mutable std::int32_t m_steps = 0; // of 10,000, since ICU counts: it tells them by a const pointer
};

} // namespace tessarine
