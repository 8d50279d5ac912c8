#pragma once

#include "Tessarine/base/TextRange.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tessarine {

// A replacement of a part of a text, as far as other parts of the text are concerned. In code units.
struct TextReplacement {
    TextRange range; // of the text before
    std::int64_t newLength = 0;

    std::int64_t newLimit() const { return range.location + newLength; }

    // Where a range stands afterwards; nothing if a part of it was replaced or something came into it.
    std::optional<TextRange> moved(const TextRange& other) const;

    // The same of a place; one that was within the range is as far from its start as there is new text.
    std::int64_t movedLocation(std::int64_t location) const;

    // Of the text before, all that may stand in a range of the text afterwards.
    TextRange before(const TextRange& after) const;

    // Takes in a later replacement if the two touch, so that this one is both in a row.
    bool append(const TextReplacement& next);
};

// Moves what has a member `range`, and takes away what has none any more. O(n).
template <class Ranged>
void applyTo(std::vector<Ranged>& rangeds, const TextReplacement& replacement) {
    std::erase_if(rangeds, [&](Ranged& ranged) {
        const auto moved = replacement.moved(ranged.range);
        if (moved) ranged.range = *moved;
        return !moved;
    });
}

} // namespace tessarine
