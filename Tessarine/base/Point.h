#pragma once

namespace tessarine {

// In points; y grows downwards.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

} // namespace tessarine
