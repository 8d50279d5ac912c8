#include "platform/screens/controllers/CardBackdrop.h"

#include "platform/screens/appearance/Palette.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

namespace platform {

namespace {

constexpr int shadowReach = 36;       // points around the card
constexpr int shadowDrop = 8;         // points downward
constexpr qreal shadowOpacity = 0.22; // next to the card

// Falls off with the square of the distance.
void setShadowStops(QGradient& gradient, qreal from) {
    constexpr int steps = 6;
    for (int step = 0; step <= steps; ++step) {
        const qreal way = static_cast<qreal>(step) / steps;
        gradient.setColorAt(
            from + (1 - from) * way,
            QColor::fromRgbF(0, 0, 0, static_cast<float>(shadowOpacity * (1 - way) * (1 - way))));
    }
}

// A soft frame around `rect`; the rect itself is left out.
void paintShadow(QPainter& painter, const QRectF& rect) {
    constexpr qreal inner = 14; // the rounding of the card
    const QRectF core = rect.adjusted(inner, inner, -inner, -inner);
    constexpr qreal reach = inner + shadowReach;
    const QPointF corners[] = {core.topLeft(), core.topRight(), core.bottomLeft(), core.bottomRight()};
    for (const QPointF corner : corners) {
        QRadialGradient gradient(corner, reach);
        setShadowStops(gradient, inner / reach);
        const qreal x = corner.x() == core.left() ? corner.x() - reach : corner.x();
        const qreal y = corner.y() == core.top() ? corner.y() - reach : corner.y();
        painter.fillRect(QRectF(x, y, reach, reach), gradient);
    }
    const std::pair<QRectF, QPointF> sides[] = {
        {QRectF(core.left(), core.top() - reach, core.width(), reach), QPointF(0, -reach)},
        {QRectF(core.left(), core.bottom(), core.width(), reach), QPointF(0, reach)},
        {QRectF(core.left() - reach, core.top(), reach, core.height()), QPointF(-reach, 0)},
        {QRectF(core.right(), core.top(), reach, core.height()), QPointF(reach, 0)}};
    for (const auto& [side, way] : sides) {
        const QPointF start(way.x() < 0 ? side.right() : side.left(),
                            way.y() < 0 ? side.bottom() : side.top());
        QLinearGradient gradient(start, start + way);
        setShadowStops(gradient, inner / reach);
        painter.fillRect(side, gradient);
    }
}

} // namespace

CardBackdrop::CardBackdrop(QWidget& container)
    : QWidget(&container) {
    lower();
    QWidget::show();
}

void CardBackdrop::show(const CardPlacement& placement, QPoint offset, qreal progress) {
    m_placement = placement;
    m_offset = offset;
    m_progress = progress;
    setGeometry(parentWidget()->rect());
    update();
}

void CardBackdrop::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(m_placement.dimming * m_progress)));
    if (m_placement.outline.isEmpty()) return;
    if (m_placement.entrance == CardPlacement::Entrance::Fade) painter.setOpacity(m_progress);
    painter.translate(m_offset);
    paintShadow(painter, QRectF(m_placement.content).translated(0, shadowDrop));
    painter.setRenderHint(QPainter::Antialiasing);
    // On dark the shadow shows little, and a line sets the card off.
    painter.setPen(currentAppearance() == Appearance::Dark ? QPen(color(Asset::Separator), 1) : Qt::NoPen);
    painter.setBrush(color(Asset::BackgroundGrey));
    painter.drawPath(m_placement.outline);
}

void CardBackdrop::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(m_placement.surrounding == CardPlacement::Surrounding::Inert);
}

} // namespace platform
