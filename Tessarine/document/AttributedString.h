#pragma once

#include "Tessarine/base/TextAttributes.h"
#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/TextSnapshot.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// A text with attributes, a line of a document for example. The text is fixed, the attributes are not.
//
// Units: UTF-16 code units; ranges must lie in the text, else the program stops.
// Invariants: runs cover the text without gaps, none is empty, and no two neighbours are equal: so strings
// that look the same are equal. An empty text has none.
// Thread: one at a time. Cost: O(log runs) for a place, and O(1) more for each run of the range. The text is
// shared or copied when the string is made, and after that read by ranges: a line may be of any length.
class AttributedString {
public:
    // The longest stretch with the same attributes. The reference dies at the next change.
    struct Run {
        TextRange range;
        const TextAttributes& attributes;
    };

    explicit AttributedString(std::u16string_view text);

    // A part of a text, which it shares. O(1).
    AttributedString(TextSnapshot text, const TextRange& range);

    std::int64_t length() const { return m_range.length; }

    // Requires 0 <= location < length().
    char16_t characterAt(std::int64_t location) const {
        return m_text.characterAt(m_range.location + location);
    }

    std::u16string substring(const TextRange& range) const;

    // A string of a part of the text, which it shares, and of no attributes. O(1).
    AttributedString part(const TextRange& range) const;

    // How many units two texts have in common at their starts. O(length), but what they share is not read.
    std::int64_t commonPrefixLength(const AttributedString& other) const;

    // In place of all that the range had.
    void setAttributes(const TextAttributes& attributes, const TextRange& range);

    // The attributes that `other` has, in place of those of as many units from there on.
    void copyAttributes(const AttributedString& other, std::int64_t location);

    // Besides what the range had; what both have is written over.
    void addAttributes(const TextAttributes& attributes, const TextRange& range);

    // Requires 0 <= location < length().
    Run runAt(std::int64_t location) const;

    // In order; the first and the last are cut to the range.
    std::vector<Run> runs(const TextRange& range) const;

    friend bool operator==(const AttributedString& a, const AttributedString& b) {
        return a.length() == b.length() && a.m_runs == b.m_runs && a.commonPrefixLength(b) == a.length();
    }

private:
    // By their starts: a run ends where the next begins.
    using Runs = std::map<std::int64_t, TextAttributes>;

    void checkRange(const TextRange& range) const;
    Runs::const_iterator runContaining(std::int64_t location) const;
    std::int64_t limitOf(Runs::const_iterator run) const;
    Runs::iterator splitAt(std::int64_t location);
    void mergeEqualNeighbours(Runs::iterator first, Runs::iterator last);

    TextSnapshot m_text;
    TextRange m_range; // the part of it
    Runs m_runs;
};

} // namespace tessarine
