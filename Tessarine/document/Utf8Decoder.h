#pragma once

#include "Tessarine/document/TextStoreBuilder.h"

#include <cstdint>
#include <span>

namespace tessarine {

// Appends the text of UTF-8 bytes. Each maximal part of a malformed sequence becomes U+FFFD; the result tells
// whether there was one. Stretches of ASCII go straight from the bytes into the chunks.
bool decodeUtf8(std::span<const std::uint8_t> bytes, TextStoreBuilder& builder);

} // namespace tessarine
