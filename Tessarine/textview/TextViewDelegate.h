#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/search/HighlightedRange.h"
#include "Tessarine/editing/CharacterPair.h"

#include <string_view>

namespace tessarine {

class TextView;

// Embedding code, as a text view asks and tells it. Whoever overrides nothing allows all but replacing in
// highlighted ranges. It may edit from within what it is told. Main thread.
class TextViewDelegate {
public:
    TextViewDelegate() = default;
    TextViewDelegate(const TextViewDelegate&) = delete;
    TextViewDelegate& operator=(const TextViewDelegate&) = delete;
    virtual ~TextViewDelegate() = default;

    // Of a view that is not editable, too: whoever is asked may make it so.
    virtual bool textViewShouldBeginEditing(TextView& /*view*/) { return true; }

    virtual bool textViewShouldEndEditing(TextView& /*view*/) { return true; }

    virtual void textViewDidBeginEditing(TextView& /*view*/) {}

    virtual void textViewDidEndEditing(TextView& /*view*/) {}

    virtual void textViewDidChange(TextView& /*view*/) {}

    virtual void textViewDidChangeSelection(TextView& /*view*/) {}

    virtual bool textViewShouldChangeText(TextView& /*view*/, const TextRange& /*range*/,
                                          std::u16string_view /*text*/) {
        return true;
    }

    virtual bool textViewShouldInsertCharacterPair(TextView& /*view*/, const CharacterPair& /*pair*/,
                                                   const TextRange& /*range*/) {
        return true;
    }

    virtual bool textViewShouldSkipTrailingComponentOfCharacterPair(TextView& /*view*/,
                                                                    const CharacterPair& /*pair*/,
                                                                    const TextRange& /*range*/) {
        return true;
    }

    virtual void textViewDidChangeGutterWidth(TextView& /*view*/) {}

    virtual void textViewDidBeginFloatingCursor(TextView& /*view*/) {}

    virtual void textViewDidEndFloatingCursor(TextView& /*view*/) {}

    // A step to the previous or next highlighted range went past an end of the list.
    virtual void textViewDidLoopToLastHighlightedRange(TextView& /*view*/) {}

    virtual void textViewDidLoopToFirstHighlightedRange(TextView& /*view*/) {}

    // Whether a menu may offer to replace what the range holds, and that it was chosen.
    virtual bool textViewCanReplaceTextInHighlightedRange(TextView& /*view*/,
                                                          const HighlightedRange& /*range*/) {
        return false;
    }

    virtual void textViewReplaceTextInHighlightedRange(TextView& /*view*/,
                                                       const HighlightedRange& /*range*/) {}
};

} // namespace tessarine
