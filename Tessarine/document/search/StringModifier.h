#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tessarine {

// What a template does to the case of a group, by the letter that stands for it behind a backslash.
enum class StringModifier : char16_t {
    uppercaseLetter = u'u',     // the next letter
    uppercaseAllLetters = u'U', // all the rest
    lowercaseLetter = u'l',
    lowercaseAllLetters = u'L',
};

// The text with each modifier applied in turn to what the ones before it have left, by grapheme clusters.
// Case mappings are full ones of no language.
std::u16string applyModifiers(std::span<const StringModifier> modifiers, std::u16string_view text);

} // namespace tessarine
