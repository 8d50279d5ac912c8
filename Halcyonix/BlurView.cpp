#include "Halcyonix/BlurView.h"

#include <QtGui/QPainter>

namespace halcyonix {

namespace {

constexpr int blurRadius = 12; // points

} // namespace

void BlurView::showEvent(QShowEvent* event) {
    takePicture();
    Backdrop::showEvent(event);
}

void BlurView::resizeEvent(QResizeEvent* event) {
    if (isVisible()) takePicture();
    Backdrop::resizeEvent(event);
}

// The window's children below the one that this belongs to; that one itself would be in the picture, too.
void BlurView::takePicture() {
    QPixmap behind(window()->size());
    behind.fill(platform::color(platform::Asset::BackgroundGrey));
    for (QObject* child : window()->children()) {
        auto* widget = qobject_cast<QWidget*>(child);
        if (widget && widget->isAncestorOf(this)) break;
        if (widget && widget->isVisible()) widget->render(&behind, widget->pos());
    }
    const QPoint origin = mapTo(window(), QPoint());
    m_picture = behind.copy(QRect(origin, size()))
                    .scaled(size() / blurRadius, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    update();
}

void BlurView::paintVeil(QPainter& painter) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), m_picture);
}

} // namespace halcyonix
