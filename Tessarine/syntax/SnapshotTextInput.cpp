#include "Tessarine/syntax/SnapshotTextInput.h"

#include "Tessarine/syntax/PreferredUtf16Encoding.h"

#include <algorithm>
#include <unicode/utf16.h>

namespace tessarine {

TSInput SnapshotTextInput::rawValue() {
    return {.payload = this, .read = read, .encoding = preferredUTF16Encoding, .decode = nullptr};
}

const char* SnapshotTextInput::read(void* payload, std::uint32_t byteIndex, TSPoint /*position*/,
                                    std::uint32_t* length) {
    auto& input = *static_cast<SnapshotTextInput*>(payload);
    const std::int64_t location = byteIndex / 2;
    std::int64_t count = 0;
    const char16_t* units =
        location < input.m_text.length() ? input.unitsAt(location, count) : input.m_buffer.data();
    *length = static_cast<std::uint32_t>(2 * count);
    return reinterpret_cast<const char*>(units);
}

// A first half of a pair at the end is left to the next piece, which then starts with it: the parser looks at
// the unit behind a piece.
const char16_t* SnapshotTextInput::unitsAt(std::int64_t location, std::int64_t& count) {
    const TextRun run = m_text.runAt(location).clipped(location, m_text.length());
    count = run.size();
    if (!run.isWide()) return copyUnits(location, count);
    if (!U16_IS_LEAD(run.at(run.limit() - 1))) return run.wideUnits();
    if (--count > 0) return run.wideUnits();
    const bool isPair = run.limit() < m_text.length() && U16_IS_TRAIL(m_text.characterAt(run.limit()));
    count = isPair ? 2 : 1;
    return copyUnits(location, count);
}

const char16_t* SnapshotTextInput::copyUnits(std::int64_t location, std::int64_t& count) {
    count = std::min(count, pieceUnits);
    m_text.copy(location, count, m_buffer.data());
    m_buffer[static_cast<std::size_t>(count)] = 0;
    return m_buffer.data();
}

} // namespace tessarine
