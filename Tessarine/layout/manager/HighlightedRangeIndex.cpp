#include "Tessarine/layout/manager/HighlightedRangeIndex.h"

#include <algorithm>

namespace tessarine {

void HighlightedRangeIndex::setRanges(const Ranges& ranges) {
    m_entries.clear();
    for (const auto& range : ranges)
        if (range->range.length > 0) m_entries.push_back({range, 0});
    std::ranges::stable_sort(m_entries, {}, [](const Entry& entry) { return entry.range->range.location; });
    findFarthestLimits(0, m_entries.size());
}

std::int64_t HighlightedRangeIndex::findFarthestLimits(std::size_t start, std::size_t limit) {
    if (start == limit) return 0;
    const std::size_t root = middle(start, limit);
    m_entries[root].farthestLimit =
        std::max({m_entries[root].range->range.limit(), findFarthestLimits(start, root),
                  findFarthestLimits(root + 1, limit)});
    return m_entries[root].farthestLimit;
}

} // namespace tessarine
