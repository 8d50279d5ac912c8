#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tessarine::languages {

// A pattern that no sample has a match for, and why it stays.
struct UnmatchedPattern {
    std::string_view query;  // "CPP highlights"
    std::string_view source; // in one line
    std::string_view reason;
};

inline constexpr UnmatchedPattern unmatchedPatterns[] = {
    {"TypeScript highlights", "(hash_bang_line) @comment", "it stands in the first line alone"},
};

constexpr bool isListedAsUnmatched(std::string_view query, std::string_view source) {
    return std::ranges::any_of(unmatchedPatterns, [&](const UnmatchedPattern& pattern) {
        return pattern.query == query && source == pattern.source;
    });
}

} // namespace tessarine::languages
