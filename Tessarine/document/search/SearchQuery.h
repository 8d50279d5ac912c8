#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace tessarine {

// What to look for. An empty text matches nothing. In a regular expression ^ and $ match at every line.
struct SearchQuery {
    std::u16string text;
    bool isRegularExpression = false;
    bool isCaseSensitive = false;

    friend bool operator==(const SearchQuery&, const SearchQuery&) = default;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::SearchQuery> {
    std::size_t operator()(const tessarine::SearchQuery& query) const noexcept {
        const std::size_t flags = (query.isRegularExpression ? 2U : 0U) + (query.isCaseSensitive ? 1U : 0U);
        return std::hash<std::u16string>()(query.text) * 4 + flags;
    }
};
