#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tessarine::languages {

// A pattern that no sample has a match for, and why it stays.
struct UnmatchedPattern {
    std::string_view source; // in one line
    std::string_view reason;
};

inline constexpr UnmatchedPattern unmatchedPatterns[] = {
    {"(plus_metadata) @toml", "the sample has its metadata in YAML"},
    {"(erroneous_end_tag_name) @variable.builtin.error", "samples have no errors"},
};

constexpr bool isListedAsUnmatched(std::string_view source) {
    return std::ranges::find(unmatchedPatterns, source, &UnmatchedPattern::source) !=
           std::end(unmatchedPatterns);
}

} // namespace tessarine::languages
