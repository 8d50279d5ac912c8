#include "Tessarine/document/StringView.h"

#include <algorithm>

namespace tessarine {

namespace {

constexpr std::int64_t mostBytes = 4096;

} // namespace

const std::u16string& StringView::string() const {
    if (!m_swiftString) m_swiftString = substring(0, length());
    return *m_swiftString;
}

void StringView::setInternalString(std::u16string_view text) {
    if (m_internalString.text() != text) setInternalString(TextStore(text));
}

void StringView::setInternalString(TextStore text) {
    if (m_internalString.text() == text.text()) return;
    m_internalString = std::move(text);
    m_cursor = TextCursor(m_internalString.text());
    m_swiftString.reset();
}

void StringView::replaceCharacters(std::int64_t location, std::int64_t length, std::u16string_view text) {
    m_internalString.replace(location, length, text);
    m_cursor = TextCursor(m_internalString.text());
    m_swiftString.reset();
}

std::optional<StringViewBytesResult> bytesAt(const TextSnapshot& text, ByteCount byteIndex) {
    const std::int64_t total = text.length() * 2;
    const std::int64_t start = byteIndex.value();
    if (start < 0 || start >= total) return std::nullopt;
    const std::int64_t location = start / 2;
    const std::int64_t limit = std::min(start + mostBytes, total) / 2;
    const std::int64_t count = limit - location;
    auto units = std::make_unique_for_overwrite<std::byte[]>(static_cast<std::size_t>(count * 2));
    // A fresh array of bytes is aligned for, and may hold, an array of code units.
    text.copy(location, count, reinterpret_cast<char16_t*>(units.get()));
    return StringViewBytesResult{std::move(units), count * 2};
}

} // namespace tessarine
