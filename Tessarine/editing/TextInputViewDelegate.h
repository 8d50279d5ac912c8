#pragma once

#include "Tessarine/base/Size.h"
#include "Tessarine/base/TextRange.h"

#include <cstdint>
#include <string_view>

namespace tessarine {

class CharacterPair;

// The text view, as the object inside it that edits sees it. Main thread.
class TextInputViewDelegate {
public:
    TextInputViewDelegate() = default;
    TextInputViewDelegate(const TextInputViewDelegate&) = delete;
    TextInputViewDelegate& operator=(const TextInputViewDelegate&) = delete;
    virtual ~TextInputViewDelegate() = default;

    // What embedding code says.
    virtual bool textInputViewShouldChangeText(const TextRange& range, std::u16string_view text) = 0;
    virtual bool textInputViewShouldInsertCharacterPair(const CharacterPair& pair,
                                                        const TextRange& range) = 0;
    virtual bool textInputViewShouldSkipTrailingComponent(const CharacterPair& pair,
                                                          const TextRange& range) = 0;

    // Asked for after changes that leave an empty selection; whether there is any scrolling is up to the
    // view.
    virtual void textInputViewScrollToVisible(std::int64_t location) = 0;

    // Of each replacement, when text and lines are the new ones and the layout does not know yet.
    virtual void textInputViewDidReplace(const TextRange& range, std::u16string_view oldText,
                                         std::u16string_view newText) = 0;

    // The same of the whole text.
    virtual void textInputViewDidExchangeText() = 0;

    virtual void textInputViewDidChange() = 0;
    virtual void textInputViewDidChangeSelection() = 0;

    // The size that the view scrolls over, and the wish that it takes over the layout's.
    virtual Size textInputViewContentSize() = 0;
    virtual void textInputViewNeedsContentSizeUpdate() = 0;
};

} // namespace tessarine
