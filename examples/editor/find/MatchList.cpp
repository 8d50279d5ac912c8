#include "examples/editor/find/MatchList.h"

#include <algorithm>

namespace tessarine::editor {

std::size_t MatchList::firstFrom(std::int64_t location) const {
    return static_cast<std::size_t>(std::ranges::lower_bound(m_ranges, location, {}, &TextRange::location) -
                                    m_ranges.begin());
}

std::size_t MatchList::firstEndingBehind(std::int64_t location) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(m_ranges, location, {}, &TextRange::limit) -
                                    m_ranges.begin());
}

std::optional<std::size_t> MatchList::indexOf(const TextRange& range) const {
    const std::size_t index = firstFrom(range.location);
    return index < count() && m_ranges[index] == range ? std::optional(index) : std::nullopt;
}

std::optional<std::size_t> MatchList::nextFrom(std::int64_t location) const {
    if (isEmpty()) return std::nullopt;
    const std::size_t index = firstFrom(location);
    return index < count() ? index : 0;
}

std::optional<std::size_t> MatchList::previousTo(std::int64_t location) const {
    if (isEmpty()) return std::nullopt;
    const std::size_t index = firstEndingBehind(location);
    return (index > 0 ? index : count()) - 1;
}

std::span<const TextRange> MatchList::within(const TextRange& range) const {
    const std::size_t first = firstEndingBehind(range.location);
    const std::size_t limit = std::max(first, firstFrom(range.limit()));
    return std::span(m_ranges).subspan(first, limit - first);
}

} // namespace tessarine::editor
