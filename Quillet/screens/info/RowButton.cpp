#include "Quillet/screens/info/RowButton.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controls/ReturnKey.h"

#include <QtGui/QPainter>

namespace quillet {

namespace {

using platform::Asset;

// Points.
constexpr QSize buttonSize(44, 33);
constexpr qreal radius = 4;
constexpr qreal borderWidth = 3;
constexpr qreal symbolSize = 18;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

} // namespace

RowButton::RowButton(const QString& symbol, const QString& name, QWidget* parent)
    : QAbstractButton(parent)
    , m_symbol(symbol) {
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

QSize RowButton::sizeHint() const {
    return buttonSize + QSize(2 * ringMargin, 2 * ringMargin);
}

void RowButton::keyPressEvent(QKeyEvent* event) {
    if (platform::isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void RowButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    painter.setBrush(platform::color(isDown() || underMouse() ? Asset::Selection : Asset::BackgroundGrey));
    painter.setPen(QPen(platform::color(Asset::KindaDarkThing), borderWidth));
    constexpr qreal inset = borderWidth / 2;
    painter.drawRoundedRect(body.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    QRectF place(0, 0, symbolSize, symbolSize);
    place.moveCenter(body.center());
    platform::drawSymbol(painter, place, m_symbol,
                         platform::color(isEnabled() ? Asset::Accent : Asset::TextSecondary));
    if (platform::showsFocusRing(*this)) platform::drawFocusRing(painter, body, radius);
}

} // namespace quillet
