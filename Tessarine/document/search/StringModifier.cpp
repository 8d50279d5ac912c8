#include "Tessarine/document/search/StringModifier.h"

#include "Tessarine/document/search/Characters.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace tessarine {

namespace {

bool isUppercase(StringModifier modifier) {
    return modifier == StringModifier::uppercaseLetter || modifier == StringModifier::uppercaseAllLetters;
}

bool isForAll(StringModifier modifier) {
    return modifier == StringModifier::uppercaseAllLetters || modifier == StringModifier::lowercaseAllLetters;
}

std::u16string withCase(StringModifier modifier, std::u16string_view text) {
    icu::UnicodeString mapped(text.data(), static_cast<std::int32_t>(text.size()));
    if (isUppercase(modifier))
        mapped.toUpper(icu::Locale::getRoot());
    else
        mapped.toLower(icu::Locale::getRoot());
    return {mapped.getBuffer(), static_cast<std::size_t>(mapped.length())};
}

} // namespace

std::u16string applyModifiers(std::span<const StringModifier> modifiers, std::u16string_view text) {
    std::u16string result;
    for (const StringModifier modifier : modifiers) {
        if (text.empty()) break;
        const std::size_t length = isForAll(modifier) ? text.size() : firstCharacterLength(text);
        result += withCase(modifier, text.substr(0, length));
        text.remove_prefix(length);
    }
    return result.append(text);
}

} // namespace tessarine
