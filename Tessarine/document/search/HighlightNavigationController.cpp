#include "Tessarine/document/search/HighlightNavigationController.h"

#include "Tessarine/base/FatalError.h"

#include <ranges>
#include <string>

namespace tessarine {

using Loop = HighlightNavigationStep::Loop;

std::optional<HighlightNavigationStep> HighlightNavigationController::selectPrevious() {
    return select(previous());
}

std::optional<HighlightNavigationStep> HighlightNavigationController::selectNext() {
    return select(next());
}

void HighlightNavigationController::selectRange(std::int64_t index) {
    const std::int64_t count = std::ssize(m_highlightedRanges);
    if (index < 0 || index >= count)
        fatalError("Cannot select highlighted range at index " + std::to_string(index) + ". There " +
                   (count == 1 ? "is " : "are ") + std::to_string(count) + " highlighted " +
                   (count == 1 ? "range" : "ranges"));
    select(HighlightNavigationStep{m_highlightedRanges[static_cast<std::size_t>(index)]->range});
}

std::optional<HighlightNavigationStep> HighlightNavigationController::previous() const {
    if (m_highlightedRanges.empty()) return std::nullopt;
    const TextRange last = m_highlightedRanges.back()->range;
    if (!m_selectedRange) return HighlightNavigationStep{last};
    for (const auto& highlighted : m_highlightedRanges | std::views::reverse)
        if (highlighted->range.limit() <= m_selectedRange->location)
            return HighlightNavigationStep{highlighted->range};
    if (!m_loopRanges) return std::nullopt;
    return HighlightNavigationStep{last, Loop::toLast};
}

std::optional<HighlightNavigationStep> HighlightNavigationController::next() const {
    if (m_highlightedRanges.empty()) return std::nullopt;
    const TextRange first = m_highlightedRanges.front()->range;
    if (!m_selectedRange) return HighlightNavigationStep{first};
    for (const auto& highlighted : m_highlightedRanges)
        if (highlighted->range.location >= m_selectedRange->limit())
            return HighlightNavigationStep{highlighted->range};
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
