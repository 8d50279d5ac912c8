#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/document/LineChangeSet.h"
#include "Tessarine/document/LinePosition.h"
#include "Tessarine/syntax/LanguageModeTextChange.h"

namespace tessarine {

// What one replacement did to text and lines.
struct TextEditResult {
    ByteCount startByte;
    ByteCount oldEndByteLength;      // of what was replaced
    ByteCount newEndByteLength;      // of what is there instead
    LinePosition oldEndLinePosition; // before the replacement; the others after it
    LinePosition startLinePosition;
    LinePosition newEndLinePosition;
    LineChangeSet lineChangeSet;

    bool didAddOrRemoveLines() const {
        return !lineChangeSet.insertedLines().isEmpty() || !lineChangeSet.removedLines().isEmpty();
    }

    LanguageModeTextChange languageModeTextChange() const {
        return {.byteRange = {startByte, oldEndByteLength},
                .newByteCount = newEndByteLength,
                .oldEndLinePosition = oldEndLinePosition,
                .startLinePosition = startLinePosition,
                .newEndLinePosition = newEndLinePosition};
    }
};

} // namespace tessarine
