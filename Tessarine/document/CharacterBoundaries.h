#pragma once

#include "Tessarine/document/TextSnapshot.h"

#include <cstdint>
#include <unicode/brkiter.h>

namespace tessarine {

// Where the extended grapheme clusters of a text meet. For use inside of one call, on one thread: it borrows
// the text and the thread's break iterator, and there may be one at a time.
class CharacterBoundaries {
public:
    explicit CharacterBoundaries(const TextSnapshot& text)
        : m_text(text) {}

    CharacterBoundaries(const CharacterBoundaries&) = delete;
    CharacterBoundaries& operator=(const CharacterBoundaries&) = delete;

    // Lets ICU's share of the text go: a share that stayed would make the next edit copy.
    ~CharacterBoundaries();

    // The last boundary at `location` or before. Requires 0 <= location <= length.
    std::int64_t atOrBefore(std::int64_t location);

    // The first boundary behind `location`. Requires 0 <= location < length.
    std::int64_t after(std::int64_t location);

private:
    // Whether the units around it alone tell that there is a boundary: below U+0300 nothing joins but CR LF.
    bool isPlain(std::int64_t location) const;
    icu::BreakIterator& iterator();

    const TextSnapshot& m_text;
    icu::BreakIterator* m_iterator = nullptr; // the thread's, once it was needed
};

} // namespace tessarine
