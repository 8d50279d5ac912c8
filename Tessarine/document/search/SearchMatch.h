#pragma once

#include "Tessarine/base/TextRange.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tessarine {

// One match of a query. Ranges are numbered: 0 is the match itself, the capture groups follow.
struct SearchMatch {
    TextRange range;
    std::vector<std::optional<TextRange>> groups; // nothing for a group that took no part

    std::int64_t numberOfRanges() const { return 1 + static_cast<std::int64_t>(groups.size()); }

    // Requires 0 <= index < numberOfRanges().
    std::optional<TextRange> rangeAtIndex(std::int64_t index) const {
        return index == 0 ? range : groups[static_cast<std::size_t>(index - 1)];
    }

    friend bool operator==(const SearchMatch&, const SearchMatch&) = default;
};

} // namespace tessarine
