#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/document/ComposedRange.h"
#include "Tessarine/document/TextCursor.h"
#include "Tessarine/document/TextStore.h"

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

// At most 4096 bytes from there on, rounded down to whole code units at both ends; nothing at or past the
// end, or below 0.
std::optional<StringViewBytesResult> bytesAt(const TextSnapshot& text, ByteCount byteIndex);

// The text of a document, the one store of it.
//
// Units: locations and lengths in UTF-16 code units; ranges are [location, location + length) and must lie in
// the text, else the program stops.
// Thread: one at a time, reads included, for they remember where they were; snapshot() is for others.
// Cost: edits anywhere and reads O(log n); characterAt beside the last read O(1).
class StringView {
public:
    explicit StringView(std::u16string_view text = {})
        : StringView(TextStore(text)) {}

    // Takes over what was loaded.
    explicit StringView(TextStore store)
        : m_internalString(std::move(store)) {}

    // The cursor points into the object itself.
    StringView(const StringView&) = delete;
    StringView& operator=(const StringView&) = delete;

    // The whole text, converted once between two changes. O(n) then: for embedding code, not for the engine.
    const std::u16string& string() const;

    // Replaces the whole text. An equal text keeps what string() has converted.
    void setInternalString(std::u16string_view text);
    void setInternalString(TextStore text);

    // `text` must not point into this text; string() is a copy, so a view of it may be given.
    void replaceCharacters(std::int64_t location, std::int64_t length, std::u16string_view text);

    std::u16string substring(std::int64_t location, std::int64_t length) const {
        return m_internalString.text().substring(location, length);
    }

    std::int64_t length() const { return m_internalString.length(); }

    // Requires 0 <= location < length().
    char16_t characterAt(std::int64_t location) const { return m_cursor.at(location); }

    // The contiguous runs of a range, without a copy; valid until the next change.
    TextRuns runs(std::int64_t location, std::int64_t length) const {
        return m_internalString.text().runs(location, length);
    }

    // A range grown to whole composed characters, CR LF among them: see ComposedRange.h.
    TextRange composedRange(std::int64_t location, std::int64_t length = 0) const {
        return tessarine::composedRange(m_internalString.text(), location, length);
    }

    // The text as it is now, in O(1): for other threads, and for whoever reads across changes.
    TextSnapshot snapshot() const { return m_internalString.snapshot(); }

    std::optional<StringViewBytesResult> bytesAt(ByteCount byteIndex) const {
        return tessarine::bytesAt(m_internalString.text(), byteIndex);
    }

private:
    TextStore m_internalString;
    mutable TextCursor m_cursor{m_internalString.text()};
    mutable std::optional<std::u16string> m_swiftString;
};

} // namespace tessarine
