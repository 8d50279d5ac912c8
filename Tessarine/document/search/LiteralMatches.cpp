#include "Tessarine/document/search/LiteralMatches.h"

#include <utility>

namespace tessarine {

LiteralMatches::LiteralMatches(TextSnapshot text, LiteralPattern pattern, std::int64_t location,
                               std::stop_token stop)
    : m_text(std::move(text))
    , m_pattern(std::move(pattern))
    , m_narrowScan(m_pattern.scan<std::uint8_t>())
    , m_wideScan(m_pattern.scan<char16_t>())
    , m_stop(std::move(stop))
    , m_location(location) {}

MatchEngine::Next LiteralMatches::next() {
    while (m_location < m_text.length()) {
        if (m_stop.stop_requested()) return cancelled();
        const std::int64_t place = nextPlace();
        if (place == m_run.limit()) {
            m_location = place;
        } else if (const auto limit = m_pattern.limitOfMatch(m_reader, place)) {
            m_location = *limit;
            return SearchMatch{{place, *limit - place}, {}};
        } else {
            m_location = place + 1;
        }
    }
    return std::nullopt;
}

std::int64_t LiteralMatches::nextPlace() {
    if (!m_run.contains(m_location)) m_run = m_text.runAt(m_location);
    const auto start = static_cast<std::size_t>(m_location - m_run.location());
    return m_run.location() + static_cast<std::int64_t>(m_run.visit([&]<class Unit>(std::span<Unit> units) {
               if constexpr (sizeof(Unit) == 1)
                   return m_narrowScan.next(units, start);
               else
                   return m_wideScan.next(units, start);
           }));
}

} // namespace tessarine
