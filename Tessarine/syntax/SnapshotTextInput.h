#pragma once

#include "Tessarine/document/TextSnapshot.h"

#include <array>
#include <tree_sitter/api.h>

namespace tessarine {

// A whole text as a parser reads it: in place where it lies in memory as UTF-16, else through one buffer that
// each piece takes over from the one before. For one parse on one thread; borrows the text.
class SnapshotTextInput {
public:
    explicit SnapshotTextInput(const TextSnapshot& text)
        : m_text(text) {}

    SnapshotTextInput(const SnapshotTextInput&) = delete;
    SnapshotTextInput& operator=(const SnapshotTextInput&) = delete;

    // As the parser takes it; borrows the object.
    TSInput rawValue();

private:
    static const char* read(void* payload, std::uint32_t byteIndex, TSPoint position, std::uint32_t* length);

    const char16_t* unitsAt(std::int64_t location, std::int64_t& count);
    const char16_t* copyUnits(std::int64_t location, std::int64_t& count);

    static constexpr std::int64_t pieceUnits = 2048;

    const TextSnapshot& m_text;
    std::array<char16_t, pieceUnits + 1> m_buffer{}; // one more than a piece, for the parser to look at
};

} // namespace tessarine
