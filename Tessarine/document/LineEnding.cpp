#include "Tessarine/document/LineEnding.h"

#include <cstddef>

namespace tessarine {

namespace {

struct Names {
    std::u16string_view symbol;
    std::string_view rawValue;
};

// In the order of the cases.
constexpr std::array<Names, allLineEndings.size()> names{{{u"\n", "lf"}, {u"\r\n", "crlf"}, {u"\r", "cr"}}};

const Names& namesOf(LineEnding lineEnding) {
    return names[static_cast<std::size_t>(lineEnding)];
}

} // namespace

std::u16string_view symbolOf(LineEnding lineEnding) {
    return namesOf(lineEnding).symbol;
}

std::string_view rawValueOf(LineEnding lineEnding) {
    return namesOf(lineEnding).rawValue;
}

std::optional<LineEnding> lineEndingOfSymbol(std::u16string_view symbol) {
    for (const LineEnding lineEnding : allLineEndings)
        if (symbolOf(lineEnding) == symbol) return lineEnding;
    return std::nullopt;
}

std::optional<LineEnding> lineEndingOfRawValue(std::string_view rawValue) {
    for (const LineEnding lineEnding : allLineEndings)
        if (rawValueOf(lineEnding) == rawValue) return lineEnding;
    return std::nullopt;
}

} // namespace tessarine
