#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/TextLocation.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tessarine {

// A match as embedding code lists it.
struct SearchResult {
    std::string id; // a UUID of its own
    TextRange range;
    TextLocation startLocation;
    TextLocation endLocation;

    friend bool operator==(const SearchResult&, const SearchResult&) = default;
};

// The same with what would replace it.
struct SearchReplaceResult {
    std::string id;
    TextRange range;
    TextLocation startLocation;
    TextLocation endLocation;
    std::u16string replacementText;

    friend bool operator==(const SearchReplaceResult&, const SearchReplaceResult&) = default;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::SearchResult> {
    std::size_t operator()(const tessarine::SearchResult& result) const noexcept {
        return std::hash<std::string>()(result.id);
    }
};
