#include "platform/screens/controls/SymbolButton.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controls/ReturnKey.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

namespace platform {

namespace {

constexpr int leastSize = 44; // points

} // namespace

SymbolButton::SymbolButton(const QString& symbol, const QString& accessibleName, Asset tint, QWidget* parent)
    : QAbstractButton(parent)
    , m_symbol(symbol)
    , m_tint(tint) {
    setAccessibleName(accessibleName);
    setToolTip(accessibleName);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMinimumSize(leastSize, leastSize);
}

QSize SymbolButton::sizeHint() const {
    const int size = std::max(leastSize, fontMetrics().height() + 16);
    return {size, size};
}

void SymbolButton::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void SymbolButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height()) - 2 * (focusRingWidth + focusRingGap);
    QRectF disc(0, 0, side, side);
    disc.moveCenter(QRectF(rect()).center());
    if (isEnabled() && (isDown() || isChecked() || underMouse())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color(isDown() || isChecked() ? Asset::Selection : Asset::BackgroundGrey));
        painter.drawEllipse(disc);
    }
    const double symbolSize = std::max(20, fontMetrics().height());
    QRectF place(0, 0, symbolSize, symbolSize);
    place.moveCenter(disc.center());
    drawSymbol(painter, place, m_symbol, color(isEnabled() ? m_tint : Asset::TextSecondary));
    if (showsFocusRing(*this)) drawFocusRing(painter, disc, side / 2);
}

} // namespace platform
