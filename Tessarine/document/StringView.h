#pragma once

#include "Tessarine/document/ByteCount.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tessarine {

// Bytes of the document's UTF-16 form in the machine's byte order, for a parser. Owns them.
struct StringViewBytesResult {
    std::unique_ptr<std::byte[]> bytes;
    ByteCount length;
};

// The text of a document. Locations and lengths are in UTF-16 code units; ranges are [location,
// location + length) and must lie in the text, else the program stops. One thread at a time.
class StringView {
public:
    explicit StringView(std::u16string_view text = {});

    // The whole text, converted once between two changes. O(n) then: for embedding code, not for the engine.
    const std::u16string& string() const;

    // Replaces the whole text. An equal text keeps what string() has converted.
    void setInternalString(std::u16string_view text);

    void replaceCharacters(std::int64_t location, std::int64_t length, std::u16string_view text);

    std::u16string substring(std::int64_t location, std::int64_t length) const;

    std::int64_t length() const { return static_cast<std::int64_t>(m_text.size()); }

    // Requires 0 <= location < length().
    char16_t characterAt(std::int64_t location) const { return m_text[static_cast<std::size_t>(location)]; }

    // At most 4096 bytes from there on, rounded to whole code units; nothing at or past the end, or below 0.
    std::optional<StringViewBytesResult> bytesAt(ByteCount byteIndex) const;

private:
    std::u16string m_text;
};

} // namespace tessarine
