#include "platform/screens/controllers/SplitDivider.h"

#include "platform/screens/appearance/Palette.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

namespace platform {

SplitDivider::SplitDivider(QWidget* parent)
    : QWidget(parent) {
    setCursor(Qt::SplitHCursor);
    setAccessibleName(QStringLiteral("Divider"));
}

void SplitDivider::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

void SplitDivider::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) Q_EMIT draggedTo(mapToParent(event->pos()).x());
}

void SplitDivider::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(QRect(width() / 2, 0, 1, height()), color(Asset::Separator));
}

} // namespace platform
