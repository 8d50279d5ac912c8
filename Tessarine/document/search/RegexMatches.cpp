#include "Tessarine/document/search/RegexMatches.h"

#include "Tessarine/document/UnicodeText.h"
#include "Tessarine/document/search/CharacterReader.h"
#include "Tessarine/document/search/RegexPrefix.h"

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

// A try at a prefix costs as much as some hundred units looked through by ICU, and its steps are counted only
// from the 10,000th on. So there are few tries, or many units between them.
constexpr std::int64_t freeTries = 16;
constexpr std::int64_t unitsPerTry = 1'024;

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
    matches->start(text, query, location, status);
    if (U_FAILURE(status)) return std::unexpected(matches->error(status));
    return matches;
}

RegexMatches::RegexMatches(std::unique_ptr<icu::RegexPattern> pattern,
                           std::unique_ptr<icu::RegexMatcher> matcher, std::stop_token stop)
    : m_pattern(std::move(pattern))
    , m_matcher(std::move(matcher))
    , m_stop(std::move(stop)) {}

void RegexMatches::start(const TextSnapshot& text, const SearchQuery& query, std::int64_t location,
                         UErrorCode& status) {
    UnicodeText unicodeText(text);
    m_matcher->reset(unicodeText.get()); // makes a clone of it
    m_location = location + (CharacterReader(text).splitsCharacter(location) ? 1 : 0);
    m_stepsOfFind = stepsFor(text.length());
    m_matcher->setStackLimit(stackBytes, status);
    m_matcher->setMatchCallback(matchGoesOn, this, status);
    // It would be called for every character that a match is not tried at.
    if (m_stop.stop_possible()) m_matcher->setFindProgressCallback(findGoesOn, this, status);
    const std::u16string prefix = prefixOfMatches(query.text);
    if (prefix.empty()) return;
    LiteralPattern pattern(prefix, query.isCaseSensitive, LiteralPattern::Kind::prefix);
    m_prefixes = std::make_unique<LiteralMatches>(text, std::move(pattern), m_location, m_stop);
}

MatchEngine::Next RegexMatches::next() {
    UErrorCode status = U_ZERO_ERROR;
    while (!m_stop.stop_requested()) {
        const bool isFound = find(status);
        if (U_FAILURE(status)) return std::unexpected(error(status));
        if (!isFound) return std::nullopt;
        m_location = m_matcher->end64(status);
        if (m_location > m_matcher->start64(status)) return match(status);
    }
    return cancelled();
}

bool RegexMatches::find(UErrorCode& status) {
    if (m_prefixes) return findBehindPrefix(status);
    return std::exchange(m_hasStarted, true) ? findNext(status) : findFrom(m_location, m_stepsOfFind, status);
}

bool RegexMatches::findBehindPrefix(UErrorCode& status) {
    std::int64_t place = m_location;
    std::int32_t steps = m_stepsOfFind; // those left for this find
    for (std::int64_t tries = 0; tries < freeTries + (place - m_location) / unitsPerTry; ++tries) {
        m_prefixes->seek(place);
        const Next prefix = m_prefixes->next();
        if (!prefix) status = U_REGEX_STOPPED_BY_CALLER;
        if (!prefix || !*prefix) return false;
        place = (*prefix)->range.location;
        if (matchesAt(place, steps, status)) return true;
        if (U_FAILURE(status)) return false;
        steps -= m_steps;
        ++place;
    }
    return findFrom(place, steps, status);
}

bool RegexMatches::matchesAt(std::int64_t location, std::int32_t steps, UErrorCode& status) {
    beginSteps(steps, status);
    return m_matcher->lookingAt(location, status);
}

bool RegexMatches::findFrom(std::int64_t location, std::int32_t steps, UErrorCode& status) {
    beginSteps(steps, status);
    return m_matcher->find(location, status);
}

// Unlike the others, this goes on counting.
bool RegexMatches::findNext(UErrorCode& status) {
    const std::int32_t room = std::numeric_limits<std::int32_t>::max() - m_stepsOfFind;
    m_matcher->setTimeLimit(std::min(m_steps, room) + m_stepsOfFind, status);
    return m_matcher->find(status);
}

// ICU begins to count at a location that it is given. A limit of 0 would be none, but where no step is left
// it has stopped before.
void RegexMatches::beginSteps(std::int32_t steps, UErrorCode& status) {
    m_steps = 0;
    m_matcher->setTimeLimit(steps, status);
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
