#pragma once

#include "Tessarine/document/TextCursor.h"
#include "Tessarine/document/TextSnapshot.h"

#include <cstdint>
#include <unicode/utf16.h>

namespace tessarine {

// A text read as characters: code points, a lone surrogate being one by itself. Borrows the text.
class CharacterReader {
public:
    explicit CharacterReader(const TextSnapshot& text)
        : m_length(text.length())
        , m_cursor(text) {}

    std::int64_t length() const { return m_length; }

    // Requires location < length().
    char16_t unitAt(std::int64_t location) { return m_cursor.at(location); }

    // Whether `location` lies between the two units of a character.
    bool splitsCharacter(std::int64_t location) {
        return location > 0 && location < m_length && U16_IS_TRAIL(m_cursor.at(location)) &&
               U16_IS_LEAD(m_cursor.at(location - 1));
    }

    // The character there, which `location` then is behind. Requires location < length().
    char32_t next(std::int64_t& location) {
        const char16_t unit = m_cursor.at(location++);
        if (!U16_IS_LEAD(unit) || location == m_length) return unit;
        const char16_t trail = m_cursor.at(location);
        if (!U16_IS_TRAIL(trail)) return unit;
        ++location;
        return static_cast<char32_t>(U16_GET_SUPPLEMENTARY(unit, trail));
    }

private:
    std::int64_t m_length;
    TextCursor m_cursor;
};

} // namespace tessarine
