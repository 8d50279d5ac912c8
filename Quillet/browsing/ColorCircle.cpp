#include "Quillet/browsing/ColorCircle.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QPainter>

namespace quillet {

namespace {

// Points.
constexpr int targetSize = 44;
constexpr double discSize = 28;
constexpr double markedRingSize = 36;
constexpr double markedRingWidth = 2;
constexpr double checkSize = 16;

QRectF centred(const QWidget& widget, double size) {
    QRectF square(0, 0, size, size);
    square.moveCenter(QRectF(widget.rect()).center());
    return square;
}

// Dark on bright colours and bright on dark ones.
QColor checkInk(const QColor& disc) {
    return qGray(disc.rgb()) > 150 ? QColor(Qt::black) : QColor(Qt::white);
}

} // namespace

ColorCircle::ColorCircle(const TagColor& color, QWidget* parent)
    : QRadioButton(parent)
    , m_color(color.asset) {
    setAccessibleName(color.name);
    setToolTip(color.name);
    setFixedSize(sizeHint());
}

QSize ColorCircle::sizeHint() const {
    return {targetSize, targetSize};
}

bool ColorCircle::hitButton(const QPoint& at) const {
    return rect().contains(at);
}

void ColorCircle::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor disc = platform::color(m_color);
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc);
    painter.drawEllipse(centred(*this, discSize));
    if (isChecked()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(disc, markedRingWidth));
        painter.drawEllipse(centred(*this, markedRingSize));
        platform::drawSymbol(painter, centred(*this, checkSize), QStringLiteral("checkmark.alt"),
                             checkInk(disc));
    }
    if (platform::showsFocusRing(*this))
        platform::drawFocusRing(painter, centred(*this, markedRingSize + markedRingWidth),
                                markedRingSize / 2 + 1);
}

} // namespace quillet
