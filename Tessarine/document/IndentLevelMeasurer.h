#pragma once

#include <cstdint>

namespace tessarine {

class StringView;

// Measures how far a stretch of text is indented. Made and dropped within one call.
class IndentLevelMeasurer {
public:
    explicit IndentLevelMeasurer(const StringView& stringView)
        : m_stringView(stringView) {}

    // The whole indents, each `tabLength` columns wide, of the tabs and spaces that lead the
    // `totalLength` code units at `location`. Requires tabLength > 0.
    std::int64_t indentLevel(std::int64_t location, std::int64_t totalLength, std::int64_t tabLength) const;

private:
    const StringView& m_stringView;
};

} // namespace tessarine
