#pragma once

#include "Tessarine/document/LinePosition.h"

#include <cstdint>

namespace tessarine {

// A place in a document together with the line that it lies in. Units: UTF-16 code units.
struct LineDetails {
    std::int64_t startLocation = 0;
    std::int64_t totalLength = 0;
    LinePosition position;
};

} // namespace tessarine
