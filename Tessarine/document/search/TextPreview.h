#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/LineManager.h"

#include <cstdint>
#include <optional>

namespace tessarine {

// Which part of the document to show around a match.
struct TextPreview {
    TextRange needleRange;          // the match in the document
    TextRange previewRange;         // the part of the document
    TextRange needleInPreviewRange; // the match as the part counts

    friend bool operator==(const TextPreview&, const TextPreview&) = default;
};

// The preview of a match within its lines, nothing outside of the document. It begins `peekLength` code units
// in front of the match and goes to as many behind twice the match's location, where the lines reach so far.
std::optional<TextPreview> textPreview(const LineManager& lines, TextRange needle,
                                       std::int64_t peekLength = 50);

} // namespace tessarine
