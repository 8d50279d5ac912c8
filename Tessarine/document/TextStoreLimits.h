#pragma once

#include <cstdint>

namespace tessarine {

// How large the parts of a text's tree grow. Tests take small ones, to meet every branch of the code.
struct TextStoreLimits {
    std::int32_t chunkUnits = 4096;   // at least 4
    std::int32_t branchChildren = 32; // 4 to 32

    // A chunk that falls below joins a neighbour. It is far from half of the limit, so that typing and
    // deleting at one place do not split and join by turns.
    std::int32_t leastChunkUnits() const { return chunkUnits / 4; }

    std::int32_t leastChildren() const { return branchChildren / 2; }

    // How far loading fills a chunk: some keystrokes find room.
    std::int32_t loadedUnits() const { return chunkUnits - chunkUnits / 8; }

    friend bool operator==(const TextStoreLimits&, const TextStoreLimits&) = default;
};

} // namespace tessarine
