#include "Tessarine/textview/WordMovement.h"

#include "Tessarine/document/CharacterBoundaries.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace tessarine {

namespace {

enum class Kind : std::uint8_t { blank, lineBreak, identifier, other };

UChar32 codePointAt(const TextSnapshot& text, std::int64_t location) {
    const char16_t unit = text.characterAt(location);
    if (!U16_IS_LEAD(unit) || location + 1 == text.length()) return unit;
    const char16_t next = text.characterAt(location + 1);
    return U16_IS_TRAIL(next) ? U16_GET_SUPPLEMENTARY(unit, next) : UChar32{unit};
}

bool isLineBreak(UChar32 character) {
    return character == '\n' || character == '\r' || character == 0x85 || character == 0x2028 ||
           character == 0x2029;
}

bool isIdentifier(UChar32 character) {
    return u_isUAlphabetic(character) || u_isdigit(character) ||
           u_charType(character) == U_CONNECTOR_PUNCTUATION;
}

Kind kindOf(UChar32 character) {
    if (isLineBreak(character)) return Kind::lineBreak;
    if (u_isUWhiteSpace(character)) return Kind::blank;
    return isIdentifier(character) ? Kind::identifier : Kind::other;
}

// A text as composed characters, each of one kind.
class Characters {
public:
    explicit Characters(const StringView& text)
        : m_text(text.snapshot()) {}

    std::int64_t length() const { return m_text.length(); }

    std::int64_t startOf(std::int64_t location) { return m_boundaries.atOrBefore(location); }

    Kind kindAt(std::int64_t start) const { return kindOf(codePointAt(m_text, start)); }

    Kind kindBefore(std::int64_t limit) { return kindAt(startOf(limit - 1)); }

    // Behind all characters of a kind from there on; no further than behind one line break.
    std::int64_t limitOf(Kind kind, std::int64_t location) {
        while (location < length() && kindAt(location) == kind) {
            location = m_boundaries.after(location);
            if (kind == Kind::lineBreak) break;
        }
        return location;
    }

    std::int64_t startOf(Kind kind, std::int64_t location) {
        while (location > 0 && kindBefore(location) == kind) {
            location = startOf(location - 1);
            if (kind == Kind::lineBreak) break;
        }
        return location;
    }

private:
    const TextSnapshot m_text;
    CharacterBoundaries m_boundaries{m_text};
};

} // namespace

std::int64_t wordLimitAfter(const StringView& text, std::int64_t location) {
    Characters characters(text);
    const std::int64_t from = characters.startOf(location);
    const std::int64_t word = characters.limitOf(Kind::blank, from);
    if (word == characters.length()) return word;
    const Kind kind = characters.kindAt(word);
    return kind == Kind::lineBreak && word > from ? word : characters.limitOf(kind, word);
}

std::int64_t wordStartBefore(const StringView& text, std::int64_t location) {
    Characters characters(text);
    const std::int64_t word = characters.startOf(Kind::blank, location);
    if (word == 0) return word;
    const Kind kind = characters.kindBefore(word);
    return kind == Kind::lineBreak && word < location ? word : characters.startOf(kind, word);
}

TextRange wordContaining(const StringView& text, std::int64_t location) {
    Characters characters(text);
    const std::int64_t at = characters.startOf(location);
    const Kind kind = characters.kindAt(at);
    const std::int64_t start = kind == Kind::lineBreak ? at : characters.startOf(kind, at);
    return {start, characters.limitOf(kind, at) - start};
}

TextRange wordAt(const StringView& text, std::int64_t location) {
    Characters characters(text);
    const std::int64_t at = characters.startOf(location);
    if (at < characters.length() && characters.kindAt(at) != Kind::lineBreak) return wordContaining(text, at);
    if (at == 0 || characters.kindBefore(at) == Kind::lineBreak) return {at, 0};
    return wordContaining(text, at - 1);
}

} // namespace tessarine
