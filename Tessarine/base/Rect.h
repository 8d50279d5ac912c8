#pragma once

#include "Tessarine/base/Point.h"
#include "Tessarine/base/Size.h"

namespace tessarine {

// In points; y grows downwards. Sizes are not negative.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double minX() const { return x; }

    double minY() const { return y; }

    double maxX() const { return x + width; }

    double maxY() const { return y + height; }

    Point origin() const { return {.x = x, .y = y}; }

    Size size() const { return {.width = width, .height = height}; }

    Rect offsetBy(double dx, double dy) const {
        return {.x = x + dx, .y = y + dy, .width = width, .height = height};
    }

    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace tessarine
