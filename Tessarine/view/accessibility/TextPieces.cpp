#include "Tessarine/view/accessibility/TextPieces.h"

#include "Tessarine/textview/TextView.h"

namespace tessarine {

namespace {

constexpr double farRight = 1e9;

TextRange characterAt(const StringView& text, std::int64_t location) {
    if (location == text.length()) return {.location = location};
    return text.composedRange(location, 1);
}

// The break belongs to the last row of its line.
TextRange rowAt(TextView& textView, std::int64_t location) {
    const StringView& text = *textView.document().stringView;
    const TextRange line = textView.movement().lineRange(location);
    const bool isAtEnd = location == text.length();
    const Rect place =
        isAtEnd ? textView.caretRect(location) : textView.firstRect({.location = location, .length = 1});
    const double y = (place.minY() + place.maxY()) / 2;
    const std::int64_t start = textView.closestIndex({.x = 0, .y = y});
    const std::int64_t limit = textView.closestIndex({.x = farRight, .y = y});
    const TextRange rest{.location = limit, .length = line.limit() - limit};
    const bool isLastRow =
        rest.length <= 2 && textView.movement().lineRange(limit) == line &&
        text.substring(rest.location, rest.length).find_first_not_of(u"\r\n") == std::u16string::npos;
    return {.location = start, .length = (isLastRow ? line.limit() : limit) - start};
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
