#include "Tessarine/syntax/TextSubstring.h"

namespace tessarine {

std::optional<TextRange> unitsOf(const TextSnapshot& text, const ByteRange& range) {
    if (range.length < 2 || range.location < 0) return std::nullopt;
    const TextRange units{.location = range.location.value() / 2, .length = range.length.value() / 2};
    if (units.location > text.length() - units.length) return std::nullopt;
    return units;
}

std::optional<std::u16string> substring(const TextSnapshot& text, const ByteRange& range) {
    const auto units = unitsOf(text, range);
    if (!units) return std::nullopt;
    return text.substring(units->location, units->length);
}

} // namespace tessarine
