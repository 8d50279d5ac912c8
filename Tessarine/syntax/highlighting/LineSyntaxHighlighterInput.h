#pragma once

#include "Tessarine/document/AttributedString.h"
#include "Tessarine/document/ByteRange.h"

#include <memory>

namespace tessarine {

// A line to highlight: its text with the attributes to change, and where it stands in the document. Both are
// of the same length.
struct LineSyntaxHighlighterInput {
    std::shared_ptr<AttributedString> attributedString;
    ByteRange byteRange;
};

} // namespace tessarine
