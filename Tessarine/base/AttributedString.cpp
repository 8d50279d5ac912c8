#include "Tessarine/base/AttributedString.h"

#include "Tessarine/base/FatalError.h"

#include <algorithm>
#include <iterator>

namespace tessarine {

AttributedString::AttributedString(std::u16string text)
    : m_string(std::move(text)) {
    if (!m_string.empty()) m_runs.try_emplace(0);
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
