#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/TextStore.h"

#include <string>
#include <vector>

namespace tessarine {

struct Replacement {
    TextRange range;
    std::u16string text;

    friend bool operator==(const Replacement&, const Replacement&) = default;
};

// Replacements that are made all at once: their ranges are those of the text as it is before.
struct BatchReplaceSet {
    std::vector<Replacement> replacements;

    // The same by location, without those that share a part with one in front of them. An insertion has no
    // part to share: one that lies inside of a range is made inside of that range's replacement, as far
    // from its start as the replacement is shorter or longer, at most at either end. So ranges are in order
    // and do not overlap. O(n log n).
    BatchReplaceSet resolved() const;
};

// What a batch makes of a text.
struct BatchReplaceResult {
    TextStore text;
    TextRange oldRange; // all that was replaced and what lies between
    TextRange newRange; // what stands in its place
};

// The text that results. All ranges must lie in the text, else the program stops. One pass, O(text).
BatchReplaceResult applyBatchReplacements(const TextSnapshot& text, const BatchReplaceSet& set);

} // namespace tessarine
