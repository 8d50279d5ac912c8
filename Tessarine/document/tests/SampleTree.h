#pragma once

#include "Tessarine/document/NodeIdentity.h"
#include "Tessarine/document/RedBlackTree.h"

#include <cstdint>

namespace tessarine {

struct SampleID {
    NodeIdentity id;

    friend bool operator==(const SampleID&, const SampleID&) = default;
};

struct SampleData {
    int tag = 0;
};

} // namespace tessarine

template <>
struct std::hash<tessarine::SampleID> {
    std::size_t operator()(const tessarine::SampleID& sample) const noexcept {
        return std::hash<tessarine::NodeIdentity>()(sample.id);
    }
};

namespace tessarine {

// The tree as plain as it comes, without an updater.
using SampleTree = RedBlackTree<SampleID, std::int64_t, SampleData>;
using SampleNode = SampleTree::Node;
using SampleReference = SampleTree::NodeReference;

} // namespace tessarine
