#pragma once

#include "Tessarine/base/TextRange.h"

#include <string_view>

namespace tessarine {

// The toolkit's widget around a text view, as that one sees it. What is to be painted is not told here but to
// the ViewHost of the tree. What carries nothing may be called many times for one change, so hosts only note
// it. Main thread.
class TextViewHost {
public:
    TextViewHost() = default;
    TextViewHost(const TextViewHost&) = delete;
    TextViewHost& operator=(const TextViewHost&) = delete;
    virtual ~TextViewHost() = default;

    // layoutIfNeeded() is to be called before anything is painted.
    virtual void textViewNeedsLayout() = 0;

    // The offset, the size of the content or how far one can scroll is another: the scroll bars are out of
    // date.
    virtual void textViewDidScroll() = 0;

    // Caret, selection or text are others, or stand elsewhere: the caret is to blink anew, and the input
    // method to be told.
    virtual void textViewDidMoveCaret() = 0;

    // Of each replacement once it is laid out, those that undo others included; the range is that of the old
    // text. For assistive tools.
    virtual void textViewDidReplace(const TextRange& range, std::u16string_view oldText,
                                    std::u16string_view newText) = 0;

    // The same where the whole text, or the document, is another one.
    virtual void textViewDidReplaceAll() = 0;

    // Editing has begun or ended, so the keyboard's focus is to follow; see isEditing().
    virtual void textViewDidChangeEditing() = 0;
};

} // namespace tessarine
