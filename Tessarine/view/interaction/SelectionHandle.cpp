#include "Tessarine/view/interaction/SelectionHandle.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QTouchEvent>

#include <utility>

namespace tessarine {

namespace {

constexpr QSize gripSize(44, 36); // that a finger can hit
constexpr double radius = 9;
constexpr double stem = 5;     // from the tip to the disc
constexpr double aboveTip = 8; // into the row that the tip is pulled, so that a finger below it selects there

} // namespace

SelectionHandle::SelectionHandle(QWidget* viewport, Actions actions)
    : QWidget(viewport)
    , m_actions(std::move(actions)) {
    resize(gripSize);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setCursor(Qt::ArrowCursor);
    hide();
}

void SelectionHandle::pointAt(const QPointF& tip) {
    move((tip - QPointF(width() / 2.0, 0)).toPoint());
}

void SelectionHandle::setColor(const QColor& color) {
    if (std::exchange(m_color, color) != color) QWidget::update();
}

bool SelectionHandle::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return touch(*static_cast<QTouchEvent*>(event));
    default:
        return QWidget::event(event);
    }
}

bool SelectionHandle::touch(const QTouchEvent& event) {
    if (event.type() == QEvent::TouchBegin)
        grip(event.points().front().position());
    else if (event.type() == QEvent::TouchUpdate)
        dragTo(event.points().front().position());
    else
        letGo();
    return true;
}

void SelectionHandle::paintEvent(QPaintEvent* /*event*/) {
    const QPointF tip(width() / 2.0, 0);
    QPainterPath path;
    path.addEllipse(tip + QPointF(0, stem + radius), radius, radius);
    path.addRect(QRectF(tip - QPointF(1, 0), QSizeF(2, stem + radius)));
    path.setFillRule(Qt::WindingFill);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, m_color);
}

void SelectionHandle::mousePressEvent(QMouseEvent* event) {
    grip(event->position());
}

void SelectionHandle::mouseMoveEvent(QMouseEvent* event) {
    dragTo(event->position());
}

void SelectionHandle::mouseReleaseEvent(QMouseEvent* /*event*/) {
    letGo();
}

void SelectionHandle::grip(const QPointF& place) {
    m_isDragged = true;
    m_fromFinger = QPointF(width() / 2.0, -aboveTip) - place;
    m_actions.begin();
}

void SelectionHandle::dragTo(const QPointF& place) {
    if (m_isDragged) m_actions.drag(mapToParent(place) + m_fromFinger);
}

void SelectionHandle::letGo() {
    if (std::exchange(m_isDragged, false)) m_actions.end();
}

} // namespace tessarine
