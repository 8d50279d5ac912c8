#include "Tessarine/layout/HighlightedWindows.h"

#include <algorithm>

namespace tessarine {

std::optional<TextRange> HighlightedWindows::missing(const TextRange& range, std::int64_t lineLength) const {
    std::int64_t first = range.location / windowLength;
    std::int64_t last = std::max(range.limit() - 1, range.location) / windowLength;
    while (first <= last && isHighlighted(first))
        ++first;
    while (first <= last && isHighlighted(last))
        --last;
    if (first > last) return std::nullopt;
    const std::int64_t start = first * windowLength;
    return TextRange{.location = start, .length = std::min((last + 1) * windowLength, lineLength) - start};
}

void HighlightedWindows::add(const TextRange& range, std::int64_t lineLength) {
    const std::int64_t end = range.limit() == lineLength ? range.limit() + windowLength - 1 : range.limit();
    const auto first = static_cast<std::size_t>((range.location + windowLength - 1) / windowLength);
    const auto limit = static_cast<std::size_t>(end / windowLength);
    if (first >= limit) return;
    if (m_isHighlighted.size() < limit) m_isHighlighted.resize(limit);
    std::fill(m_isHighlighted.begin() + static_cast<std::ptrdiff_t>(first),
              m_isHighlighted.begin() + static_cast<std::ptrdiff_t>(limit), true);
}

} // namespace tessarine
