#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/base/UUID.h"

#include <string>

namespace tessarine {

// A stretch of the document that stands out.
struct HighlightedRange {
    std::string id = freshUUID();
    TextRange range;
    double cornerRadius = 0; // points
};

} // namespace tessarine
