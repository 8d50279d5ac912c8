#pragma once

#include <cstdint>

namespace tessarine {

// [location, location + length) in UTF-16 code units.
struct TextRange {
    std::int64_t location = 0;
    std::int64_t length = 0;

    std::int64_t limit() const { return location + length; }

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

} // namespace tessarine
