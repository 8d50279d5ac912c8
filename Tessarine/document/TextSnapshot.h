#pragma once

#include "Tessarine/document/TextNode.h"
#include "Tessarine/document/TextRun.h"
#include "Tessarine/document/TextRuns.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessarine {

// A text as it was at one moment: a value that never changes and shares its parts with the store that it
// comes from and with other snapshots.
//
// Units: UTF-16 code units, lone surrogates included; ranges are [location, location + length) and must lie
// in the text, else the program stops. Thread: any number may read one snapshot, copy it and drop their
// copies, while the store goes on changing. Cost: a copy is O(1). A store that changes under a snapshot
// copies the chunk and the branches on its way. Reading many neighbours one by one: TextCursor.
class TextSnapshot {
public:
    TextSnapshot() = default;

    std::int64_t length() const { return m_root ? m_root->length() : 0; }

    // Requires 0 <= location < length(), as runAt does. O(log n).
    char16_t characterAt(std::int64_t location) const { return runAt(location).at(location); }

    // The longest contiguous run around `location`.
    TextRun runAt(std::int64_t location) const;

    TextRuns runs(std::int64_t location, std::int64_t length) const;

    TextRuns runs() const { return runs(0, length()); }

    // Writes `length` units to the destination. O(log n + length).
    void copy(std::int64_t location, std::int64_t length, char16_t* destination) const;
    std::u16string substring(std::int64_t location, std::int64_t length) const;

    // Unit by unit; without a copy of the text.
    friend bool operator==(const TextSnapshot& snapshot, std::u16string_view text) {
        return snapshot.equals(text);
    }

    // O(1) for a text and its copy.
    friend bool operator==(const TextSnapshot& a, const TextSnapshot& b) { return a.equals(b); }

    // Bytes of the tree, parts that others share included. O(n / chunk).
    std::size_t memory() const;

private:
    friend class TextStore;

    explicit TextSnapshot(TextNodeRef root)
        : m_root(std::move(root)) {}

    bool equals(std::u16string_view text) const;
    bool equals(const TextSnapshot& other) const;

    TextNodeRef m_root;
};

} // namespace tessarine
