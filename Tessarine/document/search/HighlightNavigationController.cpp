#include "Tessarine/document/search/HighlightNavigationController.h"

#include "Tessarine/base/FatalError.h"

#include <ranges>
#include <string>

namespace tessarine {

using Loop = HighlightNavigationStep::Loop;

void HighlightNavigationController::setHighlightedRanges(const Ranges& ranges) {
    m_replacement.reset();
    m_entries.clear();
    for (const auto& highlighted : ranges)
        m_entries.push_back({highlighted, highlighted->range});
}

HighlightNavigationController::Ranges HighlightNavigationController::highlightedRanges() const {
    Ranges ranges;
    for (const auto& [highlighted, range] : entries()) {
        HighlightedRange now = *highlighted;
        now.range = range;
        ranges.push_back(now.range == highlighted->range
                             ? highlighted
                             : std::make_shared<const HighlightedRange>(std::move(now)));
    }
    return ranges;
}

void HighlightNavigationController::textDidChange(const TextReplacement& replacement) {
    if (m_replacement && m_replacement->append(replacement)) return;
    entries();
    m_replacement = replacement;
}

const std::vector<HighlightNavigationController::Entry>& HighlightNavigationController::entries() const {
    if (const auto replacement = std::exchange(m_replacement, std::nullopt)) applyTo(m_entries, *replacement);
    return m_entries;
}

std::optional<HighlightNavigationStep> HighlightNavigationController::selectPrevious() {
    return select(previous());
}

std::optional<HighlightNavigationStep> HighlightNavigationController::selectNext() {
    return select(next());
}

void HighlightNavigationController::selectRange(std::int64_t index) {
    const std::int64_t count = std::ssize(entries());
    if (index < 0 || index >= count)
        fatalError("Cannot select highlighted range at index " + std::to_string(index) + ". There " +
                   (count == 1 ? "is " : "are ") + std::to_string(count) + " highlighted " +
                   (count == 1 ? "range" : "ranges"));
    select(HighlightNavigationStep{m_entries[static_cast<std::size_t>(index)].range});
}

std::optional<HighlightNavigationStep> HighlightNavigationController::previous() const {
    if (entries().empty()) return std::nullopt;
    const TextRange last = m_entries.back().range;
    if (!m_selectedRange) return HighlightNavigationStep{last};
    for (const Entry& entry : m_entries | std::views::reverse)
        if (entry.range.limit() <= m_selectedRange->location) return HighlightNavigationStep{entry.range};
    if (!m_loopRanges) return std::nullopt;
    return HighlightNavigationStep{last, Loop::toLast};
}

std::optional<HighlightNavigationStep> HighlightNavigationController::next() const {
    if (entries().empty()) return std::nullopt;
    const TextRange first = m_entries.front().range;
    if (!m_selectedRange) return HighlightNavigationStep{first};
    for (const Entry& entry : m_entries)
        if (entry.range.location >= m_selectedRange->limit()) return HighlightNavigationStep{entry.range};
    if (!m_loopRanges) return std::nullopt;
    return HighlightNavigationStep{first, Loop::toFirst};
}

std::optional<HighlightNavigationStep>
HighlightNavigationController::select(std::optional<HighlightNavigationStep> step) {
    if (!step) return step;
    m_selectedRange = step->range;
    if (const auto delegate = m_delegate.lock()) delegate->didNavigate(*step);
    return step;
}

} // namespace tessarine
