#pragma once

#include "Tessarine/document/TextEncoding.h"
#include "Tessarine/document/TextSnapshot.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <span>

namespace tessarine {

struct EncodedText {
    bool hasReplacements = false; // a lone surrogate, which UTF-8 cannot tell, became U+FFFD
};

// The first code unit that Latin-1 does not have.
struct UnencodableText {
    std::int64_t location;
};

// Gives the bytes of the text to `sink` in order, some thousand at a time; they are valid during the call.
// Error: UnencodableText, and the sink was not called.
std::expected<EncodedText, UnencodableText>
encodeText(const TextSnapshot& text, TextFormat format,
           const std::function<void(std::span<const std::byte>)>& sink);

} // namespace tessarine
