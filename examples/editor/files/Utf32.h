#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/TextStore.h"
#include "examples/editor/files/FileFormat.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace tessarine::editor {

bool isUtf32(FileEncoding encoding);

struct DecodedUtf32 {
    TextStore text;
    bool isMalformed = false; // what is no character, or not whole, became U+FFFD
};

// Of bytes behind the byte order mark.
DecodedUtf32 decodeUtf32(std::span<const std::uint8_t> bytes, FileEncoding encoding);

// Gives the bytes to the sink, some thousand at a time. Requires a text without lone surrogates.
void encodeUtf32(const TextSnapshot& text, FileEncoding encoding,
                 const std::function<void(std::span<const std::byte>)>& sink);

} // namespace tessarine::editor
