#pragma once

#include "Tessarine/document/TextBalance.h"
#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/document/TextStoreLimits.h"

#include <cstdint>
#include <string_view>

namespace tessarine {

// An editable text in UTF-16 code units: a balanced tree of chunks with one byte a unit where all of a chunk
// is below U+0100, two otherwise.
//
// Cost: a replacement is O(log n + length of the inserted text), wherever it is, and changes the tree in
// place except for the parts that a snapshot shares. A snapshot is O(1). Thread: changes and reads of the
// store belong to one thread at a time; snapshots to any. Loading from bytes: decodeText in TextDecoder.h.
class TextStore {
public:
    explicit TextStore(std::u16string_view text = {}, TextStoreLimits limits = {});

    // Shares its parts with the snapshot, which must be of a store with the usual limits. O(1).
    explicit TextStore(const TextSnapshot& text)
        : TextStore(text.m_root, TextStoreLimits()) {}

    // What the text is now, to read until the next change.
    const TextSnapshot& text() const { return m_text; }

    std::int64_t length() const { return m_text.length(); }

    // The range must lie in the text, else the program stops. `text` must not point into the store.
    void replace(std::int64_t location, std::int64_t length, std::u16string_view text);

    // What the text is now, to keep.
    TextSnapshot snapshot() const { return m_text; }

    // Stops the program if the tree is not as promised.
    void check() const { m_balance.check(m_text.m_root); }

private:
    friend class TextStoreBuilder;

    TextStore(TextNodeRef root, TextStoreLimits limits)
        : m_balance(limits)
        , m_limits(limits)
        , m_text(std::move(root)) {}

    bool liesInOneChunk(std::int64_t location, std::int64_t length) const;

    TextBalance m_balance;
    TextStoreLimits m_limits;
    TextSnapshot m_text;
};

} // namespace tessarine
