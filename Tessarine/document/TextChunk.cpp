#include "Tessarine/document/TextChunk.h"

#include "Tessarine/base/FatalError.h"

namespace tessarine {

TextChunk::TextChunk(std::int32_t expectedSize)
    : TextNode(0)
    , m_buffer(Narrow(std::span<const std::uint8_t>(), Narrow::capacityFor(expectedSize))) {}

TextChunk::TextChunk(std::span<const std::uint8_t> units)
    : TextNode(0)
    , m_buffer(Narrow(units)) {
    setLength(static_cast<std::int64_t>(units.size()));
}

TextChunk::TextChunk(std::span<const char16_t> units)
    : TextNode(0) {
    if (isNarrow(units))
        m_buffer = Narrow(units);
    else
        m_buffer = Wide(units);
    setLength(static_cast<std::int64_t>(units.size()));
}

TextRun TextChunk::run(std::int64_t location) const {
    return std::visit([location](const auto& buffer) { return TextRun(location, buffer.units()); }, m_buffer);
}

void TextChunk::replace(std::int32_t start, std::int32_t length, std::span<const char16_t> units) {
    if (!isWide() && !isNarrow(units)) widen();
    const bool losesWideUnits =
        isWide() && !isNarrow(std::get<Wide>(m_buffer).units().subspan(start, length));
    replaceUnits(start, length, units);
    if (losesWideUnits) narrowIfPossible();
}

void TextChunk::append(std::span<const std::uint8_t> units) {
    replaceUnits(size(), 0, units);
}

void TextChunk::append(const TextChunk& other) {
    if (other.isWide()) widen();
    other.run(0).visit([this](auto units) { replaceUnits(size(), 0, units); });
}

template <typename Units>
void TextChunk::replaceUnits(std::int32_t start, std::int32_t length, Units units) {
    std::visit([&](auto& buffer) { buffer.replace(start, length, units); }, m_buffer);
    setLength(this->length() - length + static_cast<std::int64_t>(units.size()));
}

void TextChunk::trim() {
    std::visit([](auto& buffer) { buffer.trim(); }, m_buffer);
}

TextRef<TextChunk> TextChunk::splitOff(std::int32_t position) {
    const TextRun taken = run(0).clipped(position, length());
    auto tail = taken.visit([](auto units) { return TextRef<TextChunk>::make(units); });
    replaceUnits(position, size() - position, std::span<const std::uint8_t>());
    if (isWide()) narrowIfPossible();
    return tail;
}

void TextChunk::widen() {
    if (isWide()) return;
    const Narrow& narrow = std::get<Narrow>(m_buffer);
    m_buffer = Wide(narrow.units(), narrow.capacity());
}

void TextChunk::narrowIfPossible() {
    const std::span<const char16_t> units = std::get<Wide>(m_buffer).units();
    if (isNarrow(units)) m_buffer = Narrow(units);
}

std::size_t TextChunk::memory() const {
    return sizeof(TextChunk) +
           std::visit([](const auto& buffer) { return buffer.capacity() * sizeof(buffer[0]); }, m_buffer);
}

void TextChunk::check() const {
    std::visit(
        [this](const auto& buffer) {
            if (buffer.size() != length()) fatalError("A chunk does not know its length.");
            if (buffer.capacity() > buffer.greatestCapacity(buffer.size()))
                fatalError("A chunk keeps too much room.");
        },
        m_buffer);
    if (isWide() && isNarrow(std::get<Wide>(m_buffer).units()))
        fatalError("A chunk is wide without a reason.");
}

} // namespace tessarine
