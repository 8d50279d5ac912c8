#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace tessarine {

// The kinds of line break that a document may use. Their order decides ties.
enum class LineEnding { lf, crlf, cr };

inline constexpr std::array allLineEndings{LineEnding::lf, LineEnding::crlf, LineEnding::cr};

// The code units of the break.
std::u16string_view symbolOf(LineEnding lineEnding);

// "lf", "crlf" or "cr": for settings and messages.
std::string_view rawValueOf(LineEnding lineEnding);

// Nothing for anything but the three symbols, or the three words.
std::optional<LineEnding> lineEndingOfSymbol(std::u16string_view symbol);
std::optional<LineEnding> lineEndingOfRawValue(std::string_view rawValue);

} // namespace tessarine
