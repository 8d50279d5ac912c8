#pragma once

#include <cstdint>
#include <optional>

namespace tessarine::editor {

// One byte a character: Latin-1 with letters and signs in place of most control characters from 0x80 to 0x9F.
// The five bytes there that have no sign stand for the control characters, so every byte comes back.

char16_t fromWindows1252(std::uint8_t byte);

// Nothing for what the encoding does not have.
std::optional<std::uint8_t> toWindows1252(char16_t unit);

} // namespace tessarine::editor
