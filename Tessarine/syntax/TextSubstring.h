#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/ByteRange.h"
#include "Tessarine/document/TextSnapshot.h"

#include <optional>
#include <string>

namespace tessarine {

// The code units of a byte range, odd bytes rounded down; nothing if it is shorter than a unit or reaches
// beyond the text.
std::optional<TextRange> unitsOf(const TextSnapshot& text, const ByteRange& range);

// Their text.
std::optional<std::u16string> substring(const TextSnapshot& text, const ByteRange& range);

} // namespace tessarine
