#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/TextRange.h"
#include "Tessarine/base/UUID.h"

#include <string>

namespace tessarine {

// A stretch of the document that stands out.
struct HighlightedRange {
    std::string id = freshUUID();
    TextRange range;
    Color color{RGBAColor{.alpha = 0}};
    double cornerRadius = 0; // points
};

} // namespace tessarine
