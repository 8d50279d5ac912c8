#pragma once

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QTextBlock>

namespace platform {

// Paints a laid-out block of a text view at a place in its viewport: the text in its own colours, also where
// it is selected, what is selected in a translucent orange, and the caret in orange where the context has
// one. `selection` is the user's; the context's other selections keep their own look.
void paintTextBlock(QPainter& painter, const QTextBlock& block, QPointF at,
                    const QAbstractTextDocumentLayout::PaintContext& context, const QTextCursor& selection,
                    int caretWidth);

} // namespace platform
