#pragma once

#include "Tessarine/document/TextStore.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tessarine {

// Makes a store of a text that comes in pieces, in O(n), with evenly filled chunks. One thread at a time.
class TextStoreBuilder {
public:
    explicit TextStoreBuilder(TextStoreLimits limits = {})
        : m_limits(limits) {}

    void append(std::u16string_view text);
    void appendLatin1(std::span<const std::uint8_t> text);

    // What was appended since the start or the last taking.
    TextStore take() { return {takeTree(), m_limits}; }

    TextNodeRef takeTree();

private:
    // The chunk that is being filled, and how much it still takes: at least one unit.
    TextChunk& chunkWithRoom(std::size_t& room);

    TextStoreLimits m_limits;
    std::vector<TextNodeRef> m_chunks; // full but for the last
};

} // namespace tessarine
