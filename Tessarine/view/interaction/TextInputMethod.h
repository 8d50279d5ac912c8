#pragma once

#include <QtCore/QVariant>

class QInputMethodEvent;
class QRectF;
class QWidget;

namespace tessarine {

class TextView;
struct Rect;

// Speaks with input methods, dead keys and on-screen keyboards. What they compose is marked text; of the
// document they see what is around the caret.
class TextInputMethod {
public:
    // Borrows both.
    TextInputMethod(TextView& textView, const QWidget& viewport)
        : m_textView(textView)
        , m_viewport(viewport) {}

    void handle(const QInputMethodEvent& event);

    // Rectangles are in the coordinates of the viewport's parent. Invalid for what the text view does not
    // know.
    QVariant query(Qt::InputMethodQuery query, const QVariant& argument) const;

    // What is composed becomes text.
    void finish();

private:
    void commit(const QInputMethodEvent& event);
    void select(const QInputMethodEvent& event);
    void compose(const QInputMethodEvent& event);
    void removeComposed();
    QVariant queryText(Qt::InputMethodQuery query, const QVariant& argument) const;
    QRectF shown(const Rect& contentRect) const;

    TextView& m_textView;
    const QWidget& m_viewport;
};

} // namespace tessarine
