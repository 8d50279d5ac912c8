#pragma once

namespace tessarine {

// Which corners of a view are rounded.
struct CornerMask {
    bool topLeft = true;
    bool topRight = true;
    bool bottomLeft = true;
    bool bottomRight = true;

    friend bool operator==(const CornerMask&, const CornerMask&) = default;
};

} // namespace tessarine
