#pragma once

#include <cstdint>

namespace tessarine {

// Why a query could not be made of its source.
struct TreeSitterQueryError {
    enum class Kind { syntax, nodeType, field, capture, structure, unknown };

    Kind kind = Kind::unknown;
    std::uint32_t offset = 0; // in bytes of the source; 0 for unknown

    friend bool operator==(const TreeSitterQueryError&, const TreeSitterQueryError&) = default;
};

} // namespace tessarine
