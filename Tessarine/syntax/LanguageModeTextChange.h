#pragma once

#include "Tessarine/document/ByteRange.h"
#include "Tessarine/document/LinePosition.h"

namespace tessarine {

// One replacement, told to the language mode after the text and its lines have changed.
struct LanguageModeTextChange {
    ByteRange byteRange;             // of what was replaced, in the old document
    ByteCount newByteCount;          // of what is there instead
    LinePosition oldEndLinePosition; // in the old document
    LinePosition startLinePosition;
    LinePosition newEndLinePosition; // in the new document
};

} // namespace tessarine
