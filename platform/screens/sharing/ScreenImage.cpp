#include "platform/screens/sharing/ScreenImage.h"

#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QPlainTextEdit>

namespace platform {

namespace {

// While it lives a text view has no caret.
class WithoutCaret {
public:
    explicit WithoutCaret(QAbstractScrollArea& view)
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

QImage imageOf(QAbstractScrollArea& view) {
    const WithoutCaret withoutCaret(view);
    QWidget& visible = *view.viewport();
    const qreal scale = visible.devicePixelRatio();
    QImage image(visible.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(visible.palette().color(visible.backgroundRole()));
    visible.render(&image);
    return image;
}

} // namespace platform
