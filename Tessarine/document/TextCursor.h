#pragma once

#include "Tessarine/document/TextSnapshot.h"

#include <cstdint>

namespace tessarine {

// Remembers the run of the last read, so that reading neighbours one by one costs a comparison each. Borrows
// the text: a cursor on a store's text must be made anew after a change. One thread at a time.
class TextCursor {
public:
    explicit TextCursor(const TextSnapshot& text)
        : m_text(&text) {}

    // Requires 0 <= location < length of the text, else the program stops.
    char16_t at(std::int64_t location) {
        if (!m_run.contains(location)) m_run = m_text->runAt(location);
        return m_run.at(location);
    }

private:
    const TextSnapshot* m_text;
    TextRun m_run;
};

} // namespace tessarine
