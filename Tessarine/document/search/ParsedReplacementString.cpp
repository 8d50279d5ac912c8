#include "Tessarine/document/search/ParsedReplacementString.h"

#include <algorithm>

namespace tessarine {

namespace {

std::u16string asTyped(std::int64_t index) {
    const std::string digits = std::to_string(index);
    return u'$' + std::u16string(digits.begin(), digits.end());
}

std::u16string textOf(const PlaceholderParameters& placeholder, const SearchMatch& match,
                      const TextSnapshot& text) {
    if (placeholder.index < 0 || placeholder.index >= match.numberOfRanges())
        return asTyped(placeholder.index);
    const auto range = match.rangeAtIndex(placeholder.index);
    if (!range) return {};
    std::u16string matched = text.substring(range->location, range->length);
    return placeholder.index == 0 ? matched : applyModifiers(placeholder.modifiers, matched);
}

std::u16string textOf(const TextParameters& parameters, const SearchMatch&, const TextSnapshot&) {
    return parameters.text;
}

} // namespace

ParsedReplacementString ParsedReplacementString::literal(std::u16string_view text) {
    return {{TextParameters{std::u16string(text)}}};
}

bool ParsedReplacementString::hasPlaceholder() const {
    return std::ranges::any_of(components, [](const Component& component) {
        return std::holds_alternative<PlaceholderParameters>(component);
    });
}

std::u16string ParsedReplacementString::string(const SearchMatch& match, const TextSnapshot& text) const {
    std::u16string result;
    for (const Component& component : components)
        result += std::visit([&](const auto& part) { return textOf(part, match, text); }, component);
    return result;
}

} // namespace tessarine
