#include "platform/screens/text/TextBlockPainting.h"

#include "platform/screens/appearance/Palette.h"

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <algorithm>

namespace platform {

namespace {

using Context = QAbstractTextDocumentLayout::PaintContext;

constexpr float selectionOpacity = 0.32F; // a text keeps two thirds of its contrast to what it stands on

QTextCharFormat userSelection() {
    QTextCharFormat format;
    QColor background = color(Asset::SystemOrange);
    background.setAlphaF(selectionOpacity);
    format.setBackground(background);
    return format;
}

QList<QTextLayout::FormatRange> selectionsIn(const QTextBlock& block, const Context& context,
                                             const QTextCursor& selected) {
    QList<QTextLayout::FormatRange> ranges;
    for (const auto& selection : context.selections) {
        const int start = std::max(0, selection.cursor.selectionStart() - block.position());
        const int limit = std::min(block.length(), selection.cursor.selectionEnd() - block.position());
        if (start < limit)
            ranges.append(
                {start, limit - start, selection.cursor == selected ? userSelection() : selection.format});
    }
    return ranges;
}

// Where the caret stands in this block, if it does. A context counts below -1 inside of what an input method
// is composing.
std::optional<int> caretIn(const QTextBlock& block, const Context& context) {
    const QTextLayout& layout = *block.layout();
    if (context.cursorPosition < -1 && !layout.preeditAreaText().isEmpty())
        return layout.preeditAreaPosition() - (context.cursorPosition + 2);
    return block.contains(context.cursorPosition) ? std::optional(context.cursorPosition - block.position())
                                                  : std::nullopt;
}

void paintCaret(QPainter& painter, const QTextLayout& layout, QPointF at, int position, int width) {
    const QTextLine line = layout.lineForTextPosition(position);
    if (!line.isValid()) return;
    const QPointF top = at + QPointF(line.cursorToX(position), line.y());
    painter.fillRect(QRectF(top, QSizeF(width, line.height())), color(Asset::SystemOrange));
}

} // namespace

void paintTextBlock(QPainter& painter, const QTextBlock& block, QPointF at, const Context& context,
                    const QTextCursor& selection, int caretWidth) {
    const QTextLayout& layout = *block.layout();
    layout.draw(&painter, at, selectionsIn(block, context, selection), context.clip);
    if (const auto caret = caretIn(block, context)) paintCaret(painter, layout, at, *caret, caretWidth);
}

} // namespace platform
