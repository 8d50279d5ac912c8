#pragma once

#include "Tessarine/document/search/ParsedReplacementString.h"

#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// Takes a replacement template apart: "$12" is a placeholder, "\u", "\U", "\l" and "\L" in front of one
// change its case, "\$" is a dollar sign, all else is text as it stands. Made for one parse.
//
// A placeholder that does not fit an index stops the program, unless the template ends with it; then it is
// left out. So are modifiers at the end.
class ReplacementStringParser {
public:
    explicit ReplacementStringParser(std::u16string_view string)
        : m_string(string) {}

    std::vector<ParsedReplacementString::Component> parse();

private:
    // A grapheme cluster.
    using Character = std::u16string_view;

    enum class State { text, placeholder, escapeSequence };

    void take(Character character, Character next);
    void takeInText(Character character, Character next);
    void takeInPlaceholder(Character character, Character next);
    void takeInEscapeSequence(Character character);
    void finish();

    void flushText();
    void endPlaceholder();

    // Whether the digits collected gave a placeholder.
    bool addPlaceholder();
    void restoreModifiers();

    const std::u16string m_string;
    State m_state = State::text;
    std::u16string m_collectedString;
    std::vector<StringModifier> m_collectedModifiers;
    std::vector<ParsedReplacementString::Component> m_components;
};

} // namespace tessarine
