#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace tessarine {

// A place in a document by row and column, both zero-based; columns count UTF-16 code units.
struct LinePosition {
    std::int64_t row = 0;
    std::int64_t column = 0;

    friend bool operator==(const LinePosition&, const LinePosition&) = default;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::LinePosition> {
    std::size_t operator()(const tessarine::LinePosition& position) const noexcept {
        // An odd factor spreads the rows, so that neighbours in either direction differ.
        return std::hash<std::int64_t>()(position.row) * 0x9E3779B97F4A7C15 ^
               std::hash<std::int64_t>()(position.column);
    }
};
