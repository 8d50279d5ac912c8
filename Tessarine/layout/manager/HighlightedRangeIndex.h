#pragma once

#include "Tessarine/document/TextReplacement.h"
#include "Tessarine/document/search/HighlightedRange.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tessarine {

// Finds the highlighted ranges that touch a stretch of the text, however many there are and however they
// overlap.
//
// A balanced tree that lies in a vector: ranges by their starts, the middle of a stretch being its root, and
// each root knows how far the ranges of its stretch reach. Edits that touch each other, as those of typing
// do, are kept as one and reckoned with in each look-up; the ranges are moved when an edit comes elsewhere.
// Cost: O(n log n) to set; O(log n) a look-up, and O(log n) more for each range found; of a run of edits
// O(n).
class HighlightedRangeIndex {
public:
    using Ranges = std::vector<std::shared_ptr<const HighlightedRange>>;

    // Without the empty ones, which show nothing.
    void setRanges(const Ranges& ranges);

    // The text has changed: what lies behind moves, what is touched goes.
    void textDidChange(const TextReplacement& replacement);

    bool isEmpty() const { return m_entries.empty(); }

    // With where each is by now, in the order of their starts. An empty stretch touches nothing.
    template <class Visit>
    void visit(const TextRange& range, Visit visit) const {
        const TextRange stretch = m_replacement ? m_replacement->before(range) : range;
        if (range.length <= 0 || stretch.length <= 0) return;
        visitBetween(0, m_entries.size(), stretch, [&](const Entry& entry) {
            const auto now = m_replacement ? m_replacement->moved(entry.range) : entry.range;
            if (now && now->location < range.limit() && now->limit() > range.location)
                visit(*entry.highlighted, *now);
        });
    }

private:
    struct Entry {
        std::shared_ptr<const HighlightedRange> highlighted;
        TextRange range;                // as it was before m_replacement
        std::size_t order;              // among those that were set
        std::int64_t farthestLimit = 0; // of the stretch whose root it is
    };

    static std::size_t middle(std::size_t start, std::size_t limit) { return start + (limit - start) / 2; }

    std::int64_t findFarthestLimits(std::size_t start, std::size_t limit);

    template <class Visit>
    void visitBetween(std::size_t start, std::size_t limit, const TextRange& range,
                      const Visit& visit) const {
        if (start == limit) return;
        const std::size_t root = middle(start, limit);
        if (m_entries[root].farthestLimit <= range.location) return;
        visitBetween(start, root, range, visit);
        const TextRange& candidate = m_entries[root].range;
        if (candidate.location >= range.limit()) return;
        if (candidate.limit() > range.location) visit(m_entries[root]);
        visitBetween(root + 1, limit, range, visit);
    }

    std::vector<Entry> m_entries;
    std::optional<TextReplacement> m_replacement;
};

} // namespace tessarine
