#include "Quillet/screens/info/Chip.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controls/ReturnKey.h"

#include <QtGui/QPainter>

namespace quillet {

namespace {

// Points.
constexpr int leastHeight = 33;
constexpr int mostTextWidth = 220;
constexpr int padding = 14;
constexpr qreal radius = 9;
constexpr qreal borderWidth = 3;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

QFont mediumFont() {
    QFont font = platform::font(platform::TextStyle::Subheadline);
    font.setWeight(QFont::Medium);
    return font;
}

} // namespace

Chip::Chip(QWidget* parent)
    : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Chip::setTitle(const QString& title) {
    setText(title);
    setAccessibleName(title);
    const bool isCut = QFontMetrics(mediumFont()).horizontalAdvance(title) > mostTextWidth;
    setToolTip(isCut ? title : QString());
    updateGeometry();
}

int Chip::leastWidth() const {
    return 44;
}

QSize Chip::sizeHint() const {
    const QFontMetrics metrics(mediumFont());
    const int text = std::min(metrics.horizontalAdvance(this->text()), mostTextWidth);
    return QSize(std::max(leastWidth(), text + 2 * padding), std::max(leastHeight, metrics.height() + 12)) +
           QSize(2 * ringMargin, 2 * ringMargin);
}

void Chip::keyPressEvent(QKeyEvent* event) {
    if (platform::isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void Chip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    const Look look = this->look();
    painter.setPen(Qt::NoPen);
    if (look.fill) {
        painter.setBrush(platform::color(*look.fill));
        painter.drawRoundedRect(body, radius, radius);
    }
    if (look.border) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(platform::color(*look.border), borderWidth));
        constexpr qreal inset = borderWidth / 2;
        painter.drawRoundedRect(body.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    }
    painter.setFont(mediumFont());
    painter.setPen(look.text);
    painter.drawText(body, Qt::AlignCenter,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, mostTextWidth));
    if (platform::showsFocusRing(*this)) platform::drawFocusRing(painter, body, radius);
}

} // namespace quillet
