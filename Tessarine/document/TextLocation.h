#pragma once

#include <cstdint>

namespace tessarine {

// A place in a document as it is shown to embedding code: line and column zero-based, columns in UTF-16 code
// units. Inside the engine it is a LinePosition.
struct TextLocation {
    std::int64_t lineNumber = 0;
    std::int64_t column = 0;

    friend bool operator==(const TextLocation&, const TextLocation&) = default;
};

} // namespace tessarine
