#pragma once

#include "Tessarine/base/Color.h"

namespace tessarine {

// What text throws behind itself. In points; a positive offset goes right and down.
struct Shadow {
    Color color;
    double offsetX = 0;
    double offsetY = 0;
    double blurRadius = 0;

    friend bool operator==(const Shadow&, const Shadow&) = default;
};

} // namespace tessarine
