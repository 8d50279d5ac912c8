#pragma once

#include "Tessarine/document/TextEncoding.h"

#include <cstdint>
#include <span>

namespace tessarine {

// U+FEFF in the encoding; empty for Latin-1.
std::span<const std::uint8_t> byteOrderMark(TextEncoding encoding);

// False for Latin-1.
bool startsWithMark(std::span<const std::uint8_t> bytes, TextEncoding encoding);

} // namespace tessarine
