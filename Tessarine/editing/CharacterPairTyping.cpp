#include "Tessarine/editing/CharacterPairTyping.h"

#include "Tessarine/document/CharacterBoundaries.h"
#include "Tessarine/document/TextStore.h"
#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/editing/TextInputView.h"

#include <algorithm>
#include <string>

namespace tessarine {

namespace {

std::int64_t characterCount(std::u16string_view text) {
    const TextStore store(text);
    CharacterBoundaries boundaries(store.text());
    std::int64_t count = 0;
    for (std::int64_t at = 0; at < store.length(); at = boundaries.after(at))
        ++count;
    return count;
}

// Inserting one of two empty components would be typing the same text again.
bool isComplete(const CharacterPair* pair) {
    return pair && !pair->leading().empty() && !pair->trailing().empty();
}

} // namespace

bool CharacterPairTyping::handle(TextRange range, std::u16string_view text) {
    const auto trailing = m_view.characterPairs().withTrailing(text);
    if (isComplete(trailing.get()) && skipTrailingComponent(*trailing, range)) return true;
    const auto leading = m_view.characterPairs().withLeading(text);
    return isComplete(leading.get()) && insertPair(*leading, range);
}

bool CharacterPairTyping::skipTrailingComponent(const CharacterPair& pair, TextRange range) {
    const std::u16string trailing = pair.trailing();
    const std::int64_t count = characterCount(trailing);
    const StringView& text = *m_view.document().stringView;
    if (count > text.length() - range.limit() || text.substring(range.limit(), count) != trailing)
        return false;
    const auto delegate = m_view.delegate();
    if (delegate && !delegate->textInputViewShouldSkipTrailingComponent(pair, range)) return false;
    const auto selection = m_view.selectedRange();
    if (!selection) return false;
    m_view.setSelectedRange(TextRange{selection->location + count, 0});
    return true;
}

bool CharacterPairTyping::insertPair(const CharacterPair& pair, TextRange range) {
    const auto delegate = m_view.delegate();
    if (delegate && !delegate->textInputViewShouldInsertCharacterPair(pair, range)) return false;
    const auto selection = m_view.selectedRange();
    if (!selection) return false;
    if (selection->length > 0)
        surroundSelection(pair, *selection, range);
    else if (m_view.insertText(pair.leading() + pair.trailing()))
        m_view.setSelectedRange(TextRange{range.location + characterCount(pair.leading()), 0});
    return true;
}

void CharacterPairTyping::surroundSelection(const CharacterPair& pair, TextRange selection, TextRange range) {
    const std::u16string selected =
        m_view.document().stringView->substring(selection.location, selection.length);
    const std::u16string text = m_view.withLineEndings(pair.leading() + selected + pair.trailing());
    if (!m_view.shouldChangeText(range, text)) return;
    m_view.replaceCharacters(m_view.inText(selection), text, std::nullopt, typingActionName);
    m_view.setSelectedRange(TextRange{range.location + characterCount(pair.leading()), range.length});
}

} // namespace tessarine
