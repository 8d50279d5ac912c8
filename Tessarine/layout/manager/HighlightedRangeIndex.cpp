#include "Tessarine/layout/manager/HighlightedRangeIndex.h"

#include <algorithm>
#include <utility>

namespace tessarine {

void HighlightedRangeIndex::setRanges(const Ranges& ranges) {
    m_entries.clear();
    m_replacement.reset();
    for (std::size_t i = 0; i < ranges.size(); ++i)
        if (ranges[i]->range.length > 0)
            m_entries.push_back({.highlighted = ranges[i], .range = ranges[i]->range, .order = i});
    std::ranges::sort(m_entries, {},
                      [](const Entry& entry) { return std::pair(entry.range.location, entry.order); });
    findFarthestLimits(0, m_entries.size());
}

void HighlightedRangeIndex::textDidChange(const TextReplacement& replacement) {
    if (m_entries.empty() || (m_replacement && m_replacement->append(replacement))) return;
    const auto former = std::exchange(m_replacement, replacement);
    if (!former) return;
    applyTo(m_entries, *former);
    findFarthestLimits(0, m_entries.size());
}

std::int64_t HighlightedRangeIndex::findFarthestLimits(std::size_t start, std::size_t limit) {
    if (start == limit) return 0;
    const std::size_t root = middle(start, limit);
    m_entries[root].farthestLimit = std::max({m_entries[root].range.limit(), findFarthestLimits(start, root),
                                              findFarthestLimits(root + 1, limit)});
    return m_entries[root].farthestLimit;
}

} // namespace tessarine
