#pragma once

#include "Tessarine/document/TextEncoding.h"
#include "Tessarine/document/TextStore.h"

#include <cstddef>
#include <optional>
#include <span>

namespace tessarine {

struct DecodedText {
    TextStore text;
    TextFormat format;            // to save it as it came
    bool hasReplacements = false; // something was malformed: saving will not give the same bytes
};

// Makes a text of a file's bytes, in O(n) and without a copy of the whole. Without `encoding`, a byte order
// mark tells it, and UTF-8 is assumed where there is none. A mark that belongs to the encoding is no part of
// the text.
//
// Malformed UTF-8 becomes U+FFFD, one for each maximal part of a sequence, as the Unicode standard
// recommends. So does half a code unit at the end of UTF-16. Lone surrogates of UTF-16 stay as they are.
DecodedText decodeText(std::span<const std::byte> bytes, std::optional<TextEncoding> encoding = std::nullopt,
                       TextStoreLimits limits = {});

} // namespace tessarine
