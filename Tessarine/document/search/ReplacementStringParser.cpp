#include "Tessarine/document/search/ReplacementStringParser.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/search/Characters.h"

#include <charconv>
#include <optional>
#include <utility>

namespace tessarine {

namespace {

bool isDigit(std::u16string_view character) {
    return character.size() == 1 && character.front() >= u'0' && character.front() <= u'9';
}

std::optional<StringModifier> modifierOf(std::u16string_view character) {
    if (character.size() != 1 || std::u16string_view(u"uUlL").find(character) == character.npos)
        return std::nullopt;
    return static_cast<StringModifier>(character.front());
}

std::optional<std::int64_t> integerOf(const std::u16string& digits) {
    const std::string narrow(digits.begin(), digits.end());
    std::int64_t value = 0;
    const auto result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
    return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

} // namespace

std::vector<ParsedReplacementString::Component> ReplacementStringParser::parse() {
    const std::vector<Character> characters = charactersOf(m_string);
    for (std::size_t i = 0; i < characters.size(); ++i)
        take(characters[i], i + 1 < characters.size() ? characters[i + 1] : Character());
    finish();
    return std::move(m_components);
}

void ReplacementStringParser::take(Character character, Character next) {
    switch (m_state) {
    case State::text:
        return takeInText(character, next);
    case State::placeholder:
        return takeInPlaceholder(character, next);
    case State::escapeSequence:
        return takeInEscapeSequence(character);
    }
}

void ReplacementStringParser::takeInText(Character character, Character next) {
    if (character == u"\\") {
        m_collectedString += character;
        m_state = State::escapeSequence;
    } else if (character == u"$" && isDigit(next)) {
        flushText();
        m_state = State::placeholder;
    } else {
        restoreModifiers();
        m_collectedString += character;
    }
}

void ReplacementStringParser::takeInPlaceholder(Character character, Character next) {
    if (isDigit(character)) {
        m_collectedString += character;
        return;
    }
    endPlaceholder();
    takeInText(character, next);
}

// The text collected ends in the backslash.
void ReplacementStringParser::takeInEscapeSequence(Character character) {
    m_collectedString.pop_back();
    m_state = State::text;
    if (const auto modifier = modifierOf(character)) {
        m_collectedModifiers.push_back(*modifier);
        return;
    }
    restoreModifiers();
    if (character != u"$") m_collectedString += u'\\';
    m_collectedString += character;
}

void ReplacementStringParser::finish() {
    if (m_state == State::placeholder)
        addPlaceholder();
    else
        flushText();
}

void ReplacementStringParser::flushText() {
    if (!m_collectedString.empty())
        m_components.emplace_back(TextParameters{std::exchange(m_collectedString, {})});
}

void ReplacementStringParser::endPlaceholder() {
    if (!addPlaceholder())
        fatalError("We thought we were collecting a placeholder but the current character isn't valid in a "
                   "placeholder and the collected string isn't a valid placeholder value either. Since we're "
                   "peeking at the next character when starting a placeholder we should never be able to end "
                   "up in this case.");
    m_state = State::text;
}

bool ReplacementStringParser::addPlaceholder() {
    const auto index = integerOf(std::exchange(m_collectedString, {}));
    if (!index) return false;
    m_components.emplace_back(PlaceholderParameters{std::exchange(m_collectedModifiers, {}), *index});
    return true;
}

void ReplacementStringParser::restoreModifiers() {
    for (const StringModifier modifier : std::exchange(m_collectedModifiers, {}))
        m_collectedString.append({u'\\', static_cast<char16_t>(modifier)});
}

} // namespace tessarine
