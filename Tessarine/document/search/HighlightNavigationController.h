#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/TextReplacement.h"
#include "Tessarine/document/search/HighlightedRange.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tessarine {

// A highlighted range that was gone to, and whether past an end of the list.
struct HighlightNavigationStep {
    enum class Loop { none, toLast, toFirst };

    TextRange range;
    Loop loop = Loop::none;

    friend bool operator==(const HighlightNavigationStep&, const HighlightNavigationStep&) = default;
};

class HighlightNavigationControllerDelegate {
public:
    virtual ~HighlightNavigationControllerDelegate() = default;

    // Shows and selects the range, and tells of a loop.
    virtual void didNavigate(const HighlightNavigationStep& step) = 0;
};

// Goes from one highlighted range to the next, as seen from the selection. Thread: the document's.
class HighlightNavigationController {
public:
    using Ranges = std::vector<std::shared_ptr<const HighlightedRange>>;

    void setDelegate(std::weak_ptr<HighlightNavigationControllerDelegate> delegate) {
        m_delegate = std::move(delegate);
    }

    std::optional<TextRange> selectedRange() const { return m_selectedRange; }

    // The document's selection, whenever it changes.
    void setSelectedRange(std::optional<TextRange> range) { m_selectedRange = range; }

    // In document order, where they are by now.
    Ranges highlightedRanges() const;
    void setHighlightedRanges(const Ranges& ranges);

    // The text has changed: what lies behind moves, what is touched leaves the list. O(n), but O(1) for edits
    // that follow each other at one place.
    void textDidChange(const TextReplacement& replacement);

    // Whether the steps go on at the other end of the list.
    void setLoopRanges(bool loopRanges) { m_loopRanges = loopRanges; }

    // Nothing where there is no further range. Ranges that share a part with the selection are passed over.
    std::optional<HighlightNavigationStep> selectPrevious();
    std::optional<HighlightNavigationStep> selectNext();

    // An index outside of the list stops the program.
    void selectRange(std::int64_t index);

private:
    struct Entry {
        std::shared_ptr<const HighlightedRange> highlighted;
        TextRange range; // by now
    };

    const std::vector<Entry>& entries() const;
    std::optional<HighlightNavigationStep> previous() const;
    std::optional<HighlightNavigationStep> next() const;
    std::optional<HighlightNavigationStep> select(std::optional<HighlightNavigationStep> step);

    std::weak_ptr<HighlightNavigationControllerDelegate> m_delegate;
    std::optional<TextRange> m_selectedRange;
    mutable std::vector<Entry> m_entries; // as before the replacement
    mutable std::optional<TextReplacement> m_replacement;
    bool m_loopRanges = false;
};

} // namespace tessarine
