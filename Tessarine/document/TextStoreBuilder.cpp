#include "Tessarine/document/TextStoreBuilder.h"

#include <algorithm>

namespace tessarine {

TextChunk& TextStoreBuilder::chunkWithRoom(std::size_t& room) {
    const std::int64_t most = m_limits.loadedUnits();
    if (m_chunks.empty() || m_chunks.back()->length() == most)
        m_chunks.push_back(TextRef<TextChunk>::make(most));
    room = static_cast<std::size_t>(most - m_chunks.back()->length());
    return static_cast<TextChunk&>(*m_chunks.back());
}

void TextStoreBuilder::append(std::u16string_view text) {
    while (!text.empty()) {
        std::size_t room = 0;
        TextChunk& chunk = chunkWithRoom(room);
        const std::u16string_view piece = text.substr(0, room);
        chunk.replace(chunk.size(), 0, piece);
        text.remove_prefix(piece.size());
    }
}

void TextStoreBuilder::appendLatin1(std::span<const std::uint8_t> text) {
    while (!text.empty()) {
        std::size_t room = 0;
        TextChunk& chunk = chunkWithRoom(room);
        const auto piece = text.first(std::min(room, text.size()));
        chunk.append(piece);
        text = text.subspan(piece.size());
    }
}

TextNodeRef TextStoreBuilder::takeTree() {
    if (m_chunks.empty()) return nullptr;
    TextNodeRef last = std::move(m_chunks.back());
    m_chunks.pop_back();
    static_cast<TextChunk&>(*last).trim();
    const TextBalance balance(m_limits);
    TextNodeRef tree = balance.build(std::exchange(m_chunks, {}));
    return balance.join(std::move(tree), std::move(last));
}

} // namespace tessarine
