#include "Tessarine/document/AttributedString.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/TextStore.h"

#include <algorithm>
#include <iterator>

namespace tessarine {

namespace {

// Of two runs of the same size.
std::int64_t commonPrefixLength(const TextRun& a, const TextRun& b) {
    return a.visit([&](auto aUnits) {
        return b.visit([&](auto bUnits) -> std::int64_t {
            const void* const aMemory = aUnits.data();
            if (aMemory == bUnits.data()) return a.size();
            return std::ranges::mismatch(aUnits, bUnits).in1 - aUnits.begin();
        });
    });
}

} // namespace

AttributedString::AttributedString(std::u16string_view text)
    : AttributedString(TextStore(text).snapshot(),
                       {.location = 0, .length = static_cast<std::int64_t>(text.size())}) {}

AttributedString::AttributedString(TextSnapshot text, const TextRange& range)
    : m_text(std::move(text))
    , m_range(range) {
    if (m_range.length > 0) m_runs.try_emplace(0);
}

std::u16string AttributedString::substring(const TextRange& range) const {
    checkRange(range);
    return m_text.substring(m_range.location + range.location, range.length);
}

AttributedString AttributedString::part(const TextRange& range) const {
    checkRange(range);
    return {m_text, {.location = m_range.location + range.location, .length = range.length}};
}

std::int64_t AttributedString::commonPrefixLength(const AttributedString& other) const {
    const std::int64_t limit = std::min(length(), other.length());
    std::int64_t common = 0;
    while (common < limit) {
        const std::int64_t here = m_range.location + common;
        const std::int64_t there = other.m_range.location + common;
        const TextRun run = m_text.runAt(here);
        const TextRun otherRun = other.m_text.runAt(there);
        const std::int64_t size = std::min({limit - common, run.limit() - here, otherRun.limit() - there});
        const std::int64_t equal = tessarine::commonPrefixLength(run.clipped(here, here + size),
                                                                 otherRun.clipped(there, there + size));
        common += equal;
        if (equal < size) break;
    }
    return common;
}

void AttributedString::setAttributes(const TextAttributes& attributes, const TextRange& range) {
    checkRange(range);
    if (range.length == 0) return;
    const auto first = splitAt(range.location);
    const auto limit = splitAt(range.limit());
    m_runs.erase(std::next(first), limit);
    first->second = attributes;
    mergeEqualNeighbours(first, limit);
}

void AttributedString::copyAttributes(const AttributedString& other, std::int64_t location) {
    for (const Run& run : other.runs({.location = 0, .length = other.length()}))
        setAttributes(run.attributes,
                      {.location = location + run.range.location, .length = run.range.length});
}

void AttributedString::addAttributes(const TextAttributes& attributes, const TextRange& range) {
    checkRange(range);
    if (range.length == 0) return;
    const auto first = splitAt(range.location);
    const auto limit = splitAt(range.limit());
    for (auto run = first; run != limit; ++run)
        run->second.add(attributes);
    mergeEqualNeighbours(first, limit);
}

AttributedString::Run AttributedString::runAt(std::int64_t location) const {
    checkRange({.location = location, .length = 1});
    const auto run = runContaining(location);
    return {.range = {.location = run->first, .length = limitOf(run) - run->first},
            .attributes = run->second};
}

std::vector<AttributedString::Run> AttributedString::runs(const TextRange& range) const {
    checkRange(range);
    std::vector<Run> found;
    if (range.length == 0) return found;
    for (auto run = runContaining(range.location); run != m_runs.end() && run->first < range.limit(); ++run) {
        const std::int64_t start = std::max(run->first, range.location);
        const std::int64_t limit = std::min(limitOf(run), range.limit());
        found.push_back({.range = {.location = start, .length = limit - start}, .attributes = run->second});
    }
    return found;
}

void AttributedString::checkRange(const TextRange& range) const {
    if (range.location < 0 || range.length < 0 || range.location > length() - range.length)
        fatalError("A range lies outside of an attributed string.");
}

AttributedString::Runs::const_iterator AttributedString::runContaining(std::int64_t location) const {
    return std::prev(m_runs.upper_bound(location));
}

std::int64_t AttributedString::limitOf(Runs::const_iterator run) const {
    const auto next = std::next(run);
    return next == m_runs.end() ? length() : next->first;
}

// The run that begins there, cut off from the one before if need be. The end is one, too.
AttributedString::Runs::iterator AttributedString::splitAt(std::int64_t location) {
    const auto next = m_runs.lower_bound(location);
    if (location == length() || (next != m_runs.end() && next->first == location)) return next;
    return m_runs.emplace_hint(next, location, std::prev(next)->second);
}

// Of these two, those between and the one before.
void AttributedString::mergeEqualNeighbours(Runs::iterator first, Runs::iterator last) {
    const auto limit = last == m_runs.end() ? last : std::next(last);
    auto run = first == m_runs.begin() ? std::next(first) : first;
    while (run != limit)
        run = std::prev(run)->second == run->second ? m_runs.erase(run) : std::next(run);
}

} // namespace tessarine
