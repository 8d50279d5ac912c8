#include "Tessarine/document/search/RegexMatches.h"

#include "Tessarine/document/UnicodeText.h"
#include "Tessarine/document/search/CharacterReader.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace tessarine {

namespace {

constexpr std::int32_t stackBytes = 32'000'000;

// In ICU's steps of 10,000 places remembered to come back to. Patterns that only look like a burden need one
// or two a code unit.
constexpr std::int64_t leastSteps = 4'000;
constexpr std::int64_t mostSteps = 1'000'000;
constexpr std::int64_t unitsPerStep = 2'500;

std::int32_t stepsFor(std::int64_t length) {
    return static_cast<std::int32_t>(std::min(leastSteps + length / unitsPerStep, mostSteps));
}

std::uint32_t flagsOf(const SearchQuery& query) {
    const std::uint32_t syntax = query.isRegularExpression ? UREGEX_MULTILINE : UREGEX_LITERAL;
    return syntax | (query.isCaseSensitive ? 0 : UREGEX_CASE_INSENSITIVE);
}

SearchError invalidPattern(UErrorCode status, const UParseError& place) {
    return {SearchError::Kind::invalidPattern,
            std::string("The regular expression is invalid: ") + u_errorName(status) + " in line " +
                std::to_string(place.line) + " at " + std::to_string(place.offset) + "."};
}

} // namespace

std::expected<std::unique_ptr<MatchEngine>, SearchError> RegexMatches::create(const TextSnapshot& text,
                                                                              const SearchQuery& query,
                                                                              std::int64_t location,
                                                                              std::stop_token stop) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError place{};
    const icu::UnicodeString source(query.text.data(), static_cast<std::int32_t>(query.text.size()));
    std::unique_ptr<icu::RegexPattern> pattern(
        icu::RegexPattern::compile(source, flagsOf(query), place, status));
    if (U_FAILURE(status)) return std::unexpected(invalidPattern(status, place));
    std::unique_ptr<icu::RegexMatcher> matcher(pattern->matcher(status));
    if (U_FAILURE(status)) return std::unexpected(invalidPattern(status, place));
    std::unique_ptr<RegexMatches> matches(
        new RegexMatches(std::move(pattern), std::move(matcher), std::move(stop)));
    matches->start(text, location, status);
    if (U_FAILURE(status)) return std::unexpected(matches->error(status));
    return matches;
}

RegexMatches::RegexMatches(std::unique_ptr<icu::RegexPattern> pattern,
                           std::unique_ptr<icu::RegexMatcher> matcher, std::stop_token stop)
    : m_pattern(std::move(pattern))
    , m_matcher(std::move(matcher))
    , m_stop(std::move(stop)) {}

void RegexMatches::start(const TextSnapshot& text, std::int64_t location, UErrorCode& status) {
    UnicodeText unicodeText(text);
    m_matcher->reset(unicodeText.get()); // makes a clone of it
    m_start = location + (CharacterReader(text).splitsCharacter(location) ? 1 : 0);
    m_stepsOfFind = stepsFor(text.length());
    m_matcher->setStackLimit(stackBytes, status);
    m_matcher->setMatchCallback(matchGoesOn, this, status);
    // It would be called for every character that a match is not tried at.
    if (m_stop.stop_possible()) m_matcher->setFindProgressCallback(findGoesOn, this, status);
}

MatchEngine::Next RegexMatches::next() {
    UErrorCode status = U_ZERO_ERROR;
    while (!m_stop.stop_requested()) {
        const bool isFound = find(status);
        if (U_FAILURE(status)) return std::unexpected(error(status));
        if (!isFound) return std::nullopt;
        if (m_matcher->end64(status) > m_matcher->start64(status)) return match(status);
    }
    return cancelled();
}

// ICU's limit counts from the start, so it is moved along.
bool RegexMatches::find(UErrorCode& status) {
    const std::int32_t greatest = std::numeric_limits<std::int32_t>::max() - m_stepsOfFind;
    m_matcher->setTimeLimit(std::min(m_steps, greatest) + m_stepsOfFind, status);
    if (std::exchange(m_hasStarted, true)) return m_matcher->find(status);
    return m_matcher->find(m_start, status);
}

SearchMatch RegexMatches::match(UErrorCode& status) const {
    const auto rangeOf = [&](std::int32_t group) -> std::optional<TextRange> {
        const std::int64_t start = m_matcher->start64(group, status);
        if (start < 0) return std::nullopt;
        return TextRange{start, m_matcher->end64(group, status) - start};
    };
    SearchMatch match{*rangeOf(0), {}};
    const std::int32_t groups = m_matcher->groupCount();
    match.groups.reserve(static_cast<std::size_t>(groups));
    for (std::int32_t group = 1; group <= groups; ++group)
        match.groups.push_back(rangeOf(group));
    return match;
}

SearchError RegexMatches::error(UErrorCode status) const {
    switch (status) {
    case U_REGEX_STOPPED_BY_CALLER:
        return cancelled().error();
    case U_REGEX_TIME_OUT:
        return {SearchError::Kind::timeLimit, "The regular expression takes too long in this text."};
    case U_REGEX_STACK_OVERFLOW:
        return {SearchError::Kind::stackLimit, "The regular expression takes too much memory in this text."};
    default:
        return {SearchError::Kind::failed, std::string("The search failed: ") + u_errorName(status) + "."};
    }
}

UBool RegexMatches::matchGoesOn(const void* context, std::int32_t steps) {
    const auto& matches = *static_cast<const RegexMatches*>(context);
    matches.m_steps = steps;
    return !matches.m_stop.stop_requested();
}

UBool RegexMatches::findGoesOn(const void* context, std::int64_t location) {
    // Two neighbours out of 1,024: a step over a surrogate pair may miss one of them.
    if ((location & 0x3FE) != 0) return true;
    return !static_cast<const RegexMatches*>(context)->m_stop.stop_requested();
}

} // namespace tessarine
