#include "Tessarine/document/CharacterBoundaries.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/UnicodeText.h"

#include <memory>

namespace tessarine {

namespace {

// Making one costs much more than asking one.
icu::BreakIterator& iteratorOfThread() {
    thread_local const std::unique_ptr<icu::BreakIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::BreakIterator> made(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        if (U_FAILURE(status)) fatalError("ICU has no rules for characters.");
        return made;
    }();
    return *iterator;
}

void setText(icu::BreakIterator& iterator, const TextSnapshot& text) {
    UErrorCode status = U_ZERO_ERROR;
    UnicodeText unicodeText(text);
    iterator.setText(unicodeText.get(), status);
    if (U_FAILURE(status)) fatalError("ICU can not read a text.");
}

} // namespace

CharacterBoundaries::~CharacterBoundaries() {
    if (m_iterator) setText(*m_iterator, TextSnapshot());
}

std::int64_t CharacterBoundaries::atOrBefore(std::int64_t location) {
    if (isPlain(location)) return location;
    const auto offset = static_cast<std::int32_t>(location);
    // Where there is none, the question leaves the iterator at the next one.
    return iterator().isBoundary(offset) ? offset : iterator().previous();
}

std::int64_t CharacterBoundaries::after(std::int64_t location) {
    if (isPlain(location + 1)) return location + 1;
    return iterator().following(static_cast<std::int32_t>(location));
}

bool CharacterBoundaries::isPlain(std::int64_t location) const {
    if (location == 0 || location == m_text.length()) return true;
    const char16_t before = m_text.characterAt(location - 1);
    const char16_t behind = m_text.characterAt(location);
    return before < 0x300 && behind < 0x300 && !(before == u'\r' && behind == u'\n');
}

icu::BreakIterator& CharacterBoundaries::iterator() {
    if (!m_iterator) {
        m_iterator = &iteratorOfThread();
        setText(*m_iterator, m_text);
    }
    return *m_iterator;
}

} // namespace tessarine
