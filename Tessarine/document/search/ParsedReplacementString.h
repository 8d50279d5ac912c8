#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/search/SearchMatch.h"
#include "Tessarine/document/search/StringModifier.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tessarine {

struct TextParameters {
    std::u16string text;

    friend bool operator==(const TextParameters&, const TextParameters&) = default;
};

// Stands for the text of the range of this index.
struct PlaceholderParameters {
    std::vector<StringModifier> modifiers;
    std::int64_t index = 0;

    friend bool operator==(const PlaceholderParameters&, const PlaceholderParameters&) = default;
};

// A replacement template, taken apart.
struct ParsedReplacementString {
    using Component = std::variant<TextParameters, PlaceholderParameters>;

    std::vector<Component> components;

    // The text as it stands.
    static ParsedReplacementString literal(std::u16string_view text);

    bool hasPlaceholder() const;

    // What replaces a match in the text that it was found in. The match itself is left as it is, whatever
    // its modifiers; a range that there is not stays as typed; a group that took no part is empty.
    std::u16string string(const SearchMatch& match, const TextSnapshot& text) const;

    friend bool operator==(const ParsedReplacementString&, const ParsedReplacementString&) = default;
};

} // namespace tessarine
