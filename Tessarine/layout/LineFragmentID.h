#pragma once

#include "Tessarine/document/NodeIdentity.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace tessarine {

// Which row of which line: two rows of one place in a line have the same, though one be set anew.
struct LineFragmentID {
    NodeIdentity lineID;
    std::int64_t index = 0;

    // The line's identity and, in brackets, the row.
    std::string id() const { return lineID.text() + "[" + std::to_string(index) + "]"; }

    friend bool operator==(const LineFragmentID&, const LineFragmentID&) = default;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::LineFragmentID> {
    std::size_t operator()(const tessarine::LineFragmentID& fragmentID) const noexcept {
        // Serials and indices are small and dense: apart from each other they do not collide.
        return std::hash<tessarine::NodeIdentity>()(fragmentID.lineID) * 0x9E37'79B9'7F4A'7C15 +
               static_cast<std::size_t>(fragmentID.index);
    }
};
