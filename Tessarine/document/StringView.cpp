#include "Tessarine/document/StringView.h"

#include "Tessarine/base/FatalError.h"

#include <algorithm>
#include <cstring>

namespace tessarine {

namespace {

constexpr std::int64_t chunkBytes = 4096;

} // namespace

StringView::StringView(std::u16string_view text)
    : m_text(text) {}

const std::u16string& StringView::string() const {
    return m_text;
}

void StringView::setInternalString(std::u16string_view text) {
    m_text = text;
}

void StringView::replaceCharacters(std::int64_t location, std::int64_t length, std::u16string_view text) {
    if (location < 0 || length < 0 || location + length > this->length())
        fatalError("A replacement lies outside of the text.");
    m_text.replace(static_cast<std::size_t>(location), static_cast<std::size_t>(length), text);
}

std::u16string StringView::substring(std::int64_t location, std::int64_t length) const {
    if (location < 0 || length < 0 || location + length > this->length())
        fatalError("A substring lies outside of the text.");
    return m_text.substr(static_cast<std::size_t>(location), static_cast<std::size_t>(length));
}

std::optional<StringViewBytesResult> StringView::bytesAt(ByteCount byteIndex) const {
    const std::int64_t total = length() * 2;
    const std::int64_t start = byteIndex.value();
    if (start < 0 || start >= total) return std::nullopt;
    const std::int64_t limit = std::min(start + chunkBytes, total);
    const std::int64_t location = start / 2;
    const std::int64_t count = (limit - start) / 2;
    auto bytes = std::make_unique<std::byte[]>(static_cast<std::size_t>(count * 2));
    std::memcpy(bytes.get(), m_text.data() + location, static_cast<std::size_t>(count * 2));
    return StringViewBytesResult{std::move(bytes), count * 2};
}

} // namespace tessarine
