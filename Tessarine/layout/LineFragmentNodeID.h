#pragma once

#include "Tessarine/document/NodeIdentity.h"

namespace tessarine {

// The identity of a node in the tree of a line's rows.
struct LineFragmentNodeID {
    NodeIdentity id;

    friend bool operator==(const LineFragmentNodeID&, const LineFragmentNodeID&) = default;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::LineFragmentNodeID> {
    std::size_t operator()(const tessarine::LineFragmentNodeID& nodeID) const noexcept {
        return std::hash<tessarine::NodeIdentity>()(nodeID.id);
    }
};
