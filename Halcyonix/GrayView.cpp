#include "Halcyonix/GrayView.h"

#include <QtGui/QPainter>

namespace halcyonix {

namespace {

// On a dark window a middle gray would shine.
QColor gray() {
    return platform::currentAppearance() == platform::Appearance::Light ? QColor(0x80, 0x80, 0x80)
                                                                        : QColor(0x10, 0x10, 0x10);
}

} // namespace

void GrayView::setAlpha(qreal alpha) {
    const bool isSeen = qRound(alpha * 255) != qRound(m_alpha * 255);
    m_alpha = alpha;
    if (isSeen) update();
}

void GrayView::paintVeil(QPainter& painter) {
    QColor veil = gray();
    veil.setAlphaF(float(m_alpha));
    painter.fillRect(rect(), veil);
}

} // namespace halcyonix
