#pragma once

namespace tessarine {

// In points, inwards.
struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;

    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

} // namespace tessarine
