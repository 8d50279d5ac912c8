#include "platform/screens/sharing/ScreenImage.h"

#include <QtWidgets/QPlainTextEdit>

namespace platform {

namespace {

// While it lives a text view has no caret.
class WithoutCaret {
public:
    explicit WithoutCaret(QWidget& view)
        : m_text(qobject_cast<QPlainTextEdit*>(&view))
        , m_width(m_text ? m_text->cursorWidth() : 0) {
        if (m_text) m_text->setCursorWidth(0);
    }

    ~WithoutCaret() {
        if (m_text) m_text->setCursorWidth(m_width);
    }

    WithoutCaret(const WithoutCaret&) = delete;
    WithoutCaret& operator=(const WithoutCaret&) = delete;

private:
    QPlainTextEdit* m_text;
    int m_width;
};

} // namespace

QImage imageOf(const QWidget& view) {
    auto& shown = const_cast<QWidget&>(view); // is drawn, and left as it was
    const WithoutCaret withoutCaret(shown);
    const auto* scrolls = qobject_cast<QAbstractScrollArea*>(&shown);
    QWidget& visible = scrolls ? *scrolls->viewport() : shown;
    const qreal scale = visible.devicePixelRatio();
    QImage image((QSizeF(visible.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(visible.palette().color(visible.backgroundRole()));
    visible.render(&image);
    return image;
}

} // namespace platform
