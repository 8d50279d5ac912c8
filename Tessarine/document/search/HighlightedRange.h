#pragma once

#include "Tessarine/base/UUID.h"
#include "Tessarine/document/TextRange.h"

#include <string>

namespace tessarine {

// A stretch of the document that stands out.
struct HighlightedRange {
    std::string id = freshUUID();
    TextRange range;
    double cornerRadius = 0; // points
};

} // namespace tessarine
