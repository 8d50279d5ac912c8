#pragma once

#include "Tessarine/document/TextSnapshot.h"

#include <unicode/utext.h>

namespace tessarine {

// A text as ICU reads it, for RegexMatcher::reset(UText*) and BreakIterator::setText(UText*): read-only,
// native indexes are code units, and only a window of some hundred units is copied at a time.
//
// Ownership: it shares the snapshot, and so does every clone that ICU makes of it, for as long as the clone
// lives. A matcher or iterator that is kept therefore keeps the text: give it another when its work is done.
// Thread: each object, and each clone, one thread at a time.
// BreakIterator counts in 32 bits: it serves texts below 2^31 code units.
class UnicodeText {
public:
    explicit UnicodeText(const TextSnapshot& text);
    UnicodeText(const UnicodeText&) = delete;
    UnicodeText& operator=(const UnicodeText&) = delete;
    ~UnicodeText();

    UText* get() { return &m_text; }

private:
    UText m_text = UTEXT_INITIALIZER;
};

} // namespace tessarine
