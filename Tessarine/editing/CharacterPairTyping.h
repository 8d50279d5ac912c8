#pragma once

#include "Tessarine/base/TextRange.h"

#include <string_view>

namespace tessarine {

class CharacterPair;
class TextInputView;

// What typing does besides or instead of putting text in where character pairs are concerned. Made and
// dropped within one call.
//
// Carets are moved by the characters of a component, not by its code units: behind a component outside of the
// basic plane they stand too far to the left.
class CharacterPairTyping {
public:
    explicit CharacterPairTyping(TextInputView& view)
        : m_view(view) {}

    // True if with that the typed text is dealt with.
    bool handle(TextRange range, std::u16string_view text);

private:
    bool skipTrailingComponent(const CharacterPair& pair, TextRange range);
    bool insertPair(const CharacterPair& pair, TextRange range);
    void surroundSelection(const CharacterPair& pair, TextRange selection, TextRange range);

    TextInputView& m_view;
};

} // namespace tessarine
