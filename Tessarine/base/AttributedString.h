#pragma once

#include "Tessarine/base/TextAttributes.h"
#include "Tessarine/base/TextRange.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tessarine {

// A text with attributes, a line of a document for example. The text is fixed, the attributes are not.
//
// Units: UTF-16 code units; ranges must lie in the text, else the program stops.
// Invariants: runs cover the text without gaps, none is empty, and no two neighbours are equal: so strings
// that look the same are equal. An empty text has none.
// Thread: one at a time. Cost: O(log runs) for a place, and O(1) more for each run of the range.
class AttributedString {
public:
    // The longest stretch with the same attributes. The reference dies at the next change.
    struct Run {
        TextRange range;
        const TextAttributes& attributes;
    };

    explicit AttributedString(std::u16string text);

    const std::u16string& string() const { return m_string; }

    std::int64_t length() const { return static_cast<std::int64_t>(m_string.size()); }

    // In place of all that the range had.
    void setAttributes(const TextAttributes& attributes, const TextRange& range);

    // Besides what the range had; what both have is written over.
    void addAttributes(const TextAttributes& attributes, const TextRange& range);

    // Requires 0 <= location < length().
    Run runAt(std::int64_t location) const;

    // In order; the first and the last are cut to the range.
    std::vector<Run> runs(const TextRange& range) const;

    friend bool operator==(const AttributedString&, const AttributedString&) = default;

private:
    // By their starts: a run ends where the next begins.
    using Runs = std::map<std::int64_t, TextAttributes>;

    void checkRange(const TextRange& range) const;
    Runs::const_iterator runContaining(std::int64_t location) const;
    std::int64_t limitOf(Runs::const_iterator run) const;
    Runs::iterator splitAt(std::int64_t location);
    void mergeEqualNeighbours(Runs::iterator first, Runs::iterator last);

    std::u16string m_string;
    Runs m_runs;
};

} // namespace tessarine
