#pragma once

#include "Tessarine/document/NodeIdentity.h"

namespace tessarine {

// The identity of a line. Survives every edit that the line survives.
struct DocumentLineNodeID {
    NodeIdentity id;

    friend bool operator==(const DocumentLineNodeID&, const DocumentLineNodeID&) = default;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::DocumentLineNodeID> {
    std::size_t operator()(const tessarine::DocumentLineNodeID& lineID) const noexcept {
        return std::hash<tessarine::NodeIdentity>()(lineID.id);
    }
};
