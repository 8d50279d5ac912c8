#pragma once

#include "Tessarine/document/TextStoreBuilder.h"

#include <bit>
#include <cstdint>
#include <span>

namespace tessarine {

// Appends the text of UTF-16 bytes of that order, lone surrogates as they are. A single byte at the end
// becomes U+FFFD; the result tells whether there was one.
bool decodeUtf16(std::span<const std::uint8_t> bytes, std::endian order, TextStoreBuilder& builder);

} // namespace tessarine
