#include "Tessarine/view/accessibility/TextPieces.h"

#include "Tessarine/textview/TextView.h"

namespace tessarine {

namespace {

TextRange characterAt(const StringView& text, std::int64_t location) {
    if (location == text.length()) return {.location = location};
    return text.composedRange(location, 1);
}

bool isLineBreak(char16_t unit) {
    return unit == u'\n' || unit == u'\r';
}

// In the row that holds the character: between two rows a caret shows in the first of them.
Rect caretAt(TextView& textView, std::int64_t location) {
    const StringView& text = *textView.document().stringView;
    const bool isOnText = location < text.length() && !isLineBreak(text.characterAt(location));
    return textView.caretRect(isOnText ? characterAt(text, location).limit() : location);
}

// Up to the next row of its line, or with the break to the end of the line.
TextRange rowAt(TextView& textView, std::int64_t location) {
    const Rect caret = caretAt(textView, location);
    const std::int64_t start = textView.closestIndex({.x = 0, .y = caret.minY() + caret.height / 2});
    const std::int64_t next = textView.closestIndex({.x = 0, .y = caret.maxY() + caret.height / 2});
    const std::int64_t lineLimit = textView.movement().lineRange(location).limit();
    const bool isLastRow = next <= start || next >= lineLimit;
    return {.location = start, .length = (isLastRow ? lineLimit : next) - start};
}

} // namespace

TextRange pieceAt(TextView& textView, std::int64_t location, QAccessible::TextBoundaryType boundary) {
    const StringView& text = *textView.document().stringView;
    switch (boundary) {
    case QAccessible::CharBoundary:
        return characterAt(text, location);
    case QAccessible::WordBoundary:
        return textView.movement().wordRange(location);
    case QAccessible::LineBoundary:
        return rowAt(textView, location);
    case QAccessible::SentenceBoundary:
    case QAccessible::ParagraphBoundary:
        return textView.movement().lineRange(location);
    case QAccessible::NoBoundary:
        break;
    }
    return {.location = 0, .length = text.length()};
}

TextRange pieceBefore(TextView& textView, std::int64_t location, QAccessible::TextBoundaryType boundary) {
    const TextRange piece = pieceAt(textView, location, boundary);
    if (piece.location == 0) return {};
    return pieceAt(textView, piece.location - 1, boundary);
}

TextRange pieceAfter(TextView& textView, std::int64_t location, QAccessible::TextBoundaryType boundary) {
    const TextRange piece = pieceAt(textView, location, boundary);
    const std::int64_t length = textView.document().stringView->length();
    if (piece.limit() >= length) return {.location = length};
    return pieceAt(textView, piece.limit(), boundary);
}

} // namespace tessarine
