#pragma once

#include "Tessarine/document/TextNode.h"
#include "Tessarine/document/TextRun.h"
#include "Tessarine/document/UnitBuffer.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace tessarine {

// A leaf of a text's tree: some thousand code units in one piece. It holds one byte a unit exactly while all
// of them are below U+0100. Positions count from its start. Changes require a single owner.
class TextChunk final : public TextNode {
public:
    // Empty, with the room of a chunk of `expectedSize` until trim() or a removal.
    explicit TextChunk(std::int32_t expectedSize);
    explicit TextChunk(std::span<const std::uint8_t> units);
    explicit TextChunk(std::span<const char16_t> units);

    std::int32_t size() const { return static_cast<std::int32_t>(length()); }

    bool isWide() const { return std::holds_alternative<Wide>(m_buffer); }

    // All of it; `location` is where it begins in the text.
    TextRun run(std::int64_t location) const;

    void replace(std::int32_t start, std::int32_t length, std::span<const char16_t> units);
    void append(std::span<const std::uint8_t> units);
    void append(const TextChunk& other);
    void trim();

    // Takes [position, size()) off and gives it. Requires 0 < position < size().
    TextRef<TextChunk> splitOff(std::int32_t position);

    // Bytes that it takes, itself included.
    std::size_t memory() const;

    // Stops the program if the width or the room is not as promised.
    void check() const;

private:
    using Narrow = UnitBuffer<std::uint8_t>;
    using Wide = UnitBuffer<char16_t>;

    template <typename Units>
    void replaceUnits(std::int32_t start, std::int32_t length, Units units);
    void widen();
    void narrowIfPossible();

    std::variant<Narrow, Wide> m_buffer;
};

} // namespace tessarine
