#include "Tessarine/view/interaction/WheelSteps.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

namespace tessarine {

namespace {

constexpr int notch = QWheelEvent::DefaultDeltasPerStep; // eighths of a degree

QPointF turnOf(const QWheelEvent& wheel, double lineHeight) {
    if (!wheel.pixelDelta().isNull()) return wheel.pixelDelta();
    const double pointsPerNotch = QApplication::wheelScrollLines() * lineHeight;
    return QPointF(wheel.angleDelta()) * (pointsPerNotch / notch);
}

} // namespace

QPointF scrolledBy(const QWheelEvent& wheel, double lineHeight) {
    const QPointF turn = -turnOf(wheel, lineHeight);
    const bool isSideways = wheel.modifiers().testFlag(Qt::ShiftModifier) && turn.x() == 0;
    return isSideways ? turn.transposed() : turn;
}

int WheelNotches::add(const QWheelEvent& wheel) {
    m_rest += wheel.angleDelta().y();
    const int notches = m_rest / notch;
    m_rest %= notch;
    return notches;
}

} // namespace tessarine
