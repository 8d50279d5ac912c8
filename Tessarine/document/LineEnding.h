#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace tessarine {

// The kinds of line break that a document can be written with. Their order decides ties.
enum class LineEnding { lf, crlf, cr };

inline constexpr std::array allLineEndings{LineEnding::lf, LineEnding::crlf, LineEnding::cr};

// The break itself.
std::u16string_view symbol(LineEnding lineEnding);

// The name under which it is stored: "lf", "crlf", "cr".
std::string_view rawValue(LineEnding lineEnding);

// Nothing for any other text.
std::optional<LineEnding> lineEndingFromSymbol(std::u16string_view symbol);
std::optional<LineEnding> lineEndingFromRawValue(std::string_view rawValue);

} // namespace tessarine
