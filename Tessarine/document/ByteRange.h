#pragma once

#include "Tessarine/document/ByteCount.h"

#include <string>

namespace tessarine {

// [location, location + length) in bytes of the UTF-16 form of text.
struct ByteRange {
    ByteCount location;
    ByteCount length;

    friend bool operator==(const ByteRange&, const ByteRange&) = default;

    std::string description() const {
        return "{" + location.description() + ", " + length.description() + "}";
    }
};

} // namespace tessarine
