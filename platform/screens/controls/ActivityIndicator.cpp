#include "platform/screens/controls/ActivityIndicator.h"

#include "platform/screens/appearance/Motion.h"

#include <QtGui/QPainter>

namespace platform {

namespace {

constexpr int side = 20; // points
constexpr int spokes = 8;
constexpr int stepMilliseconds = 100; // eight of them a turn
constexpr int patienceMilliseconds = 300;

} // namespace

ActivityIndicator::ActivityIndicator(QWidget* parent)
    : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(QStringLiteral("Working"));
    m_timer.setInterval(stepMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void ActivityIndicator::setTint(Asset tint) {
    m_tint = tint;
    update();
}

void ActivityIndicator::startAnimating() {
    if (isAnimating()) return;
    m_sinceStart.start();
    m_timer.start();
}

void ActivityIndicator::stopAnimating() {
    m_timer.stop();
    update();
}

QSize ActivityIndicator::sizeHint() const {
    return {side, side};
}

void ActivityIndicator::paintEvent(QPaintEvent* /*event*/) {
    if (!isAnimating() || m_sinceStart.elapsed() < patienceMilliseconds) return;
    const auto turn = reducesMotion() ? 0 : static_cast<int>(m_sinceStart.elapsed() / stepMilliseconds);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    QColor ink = color(m_tint);
    for (int spoke = 0; spoke < spokes; ++spoke) {
        const int age = (turn % spokes - spoke + spokes) % spokes; // the youngest is the darkest
        ink.setAlphaF(1.0F - 0.8F * static_cast<float>(age) / (spokes - 1));
        painter.setPen(QPen(ink, 2.2, Qt::SolidLine, Qt::RoundCap));
        painter.save();
        painter.rotate(360.0 * spoke / spokes);
        painter.drawLine(QPointF(0, -side * 0.24), QPointF(0, -side * 0.42));
        painter.restore();
    }
}

} // namespace platform
