#include "Tessarine/document/LineEnding.h"

#include <cstddef>

namespace tessarine {

namespace {

constexpr std::array<std::u16string_view, 3> symbols{u"\n", u"\r\n", u"\r"};
constexpr std::array<std::string_view, 3> rawValues{"lf", "crlf", "cr"};

template <class Text>
std::optional<LineEnding> find(const std::array<Text, 3>& texts, Text wanted) {
    for (const LineEnding lineEnding : allLineEndings)
        if (texts[static_cast<std::size_t>(lineEnding)] == wanted) return lineEnding;
    return std::nullopt;
}

} // namespace

std::u16string_view symbol(LineEnding lineEnding) {
    return symbols[static_cast<std::size_t>(lineEnding)];
}

std::string_view rawValue(LineEnding lineEnding) {
    return rawValues[static_cast<std::size_t>(lineEnding)];
}

std::optional<LineEnding> lineEndingFromSymbol(std::u16string_view symbol) {
    return find(symbols, symbol);
}

std::optional<LineEnding> lineEndingFromRawValue(std::string_view rawValue) {
    return find(rawValues, rawValue);
}

} // namespace tessarine
