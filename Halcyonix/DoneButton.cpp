#include "Halcyonix/DoneButton.h"

#include "Halcyonix/SquishyButtonStyle.h"
#include "platform/screens/appearance/ContinuousCorners.h"
#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QPainter>

namespace halcyonix {

namespace {

// Points.
constexpr QSize buttonSize(66, 33);
constexpr qreal cornerRadius = 7.5;
constexpr qreal symbolSize = 20;

} // namespace

DoneButton::DoneButton(platform::Asset tint, QWidget* parent)
    : QAbstractButton(parent)
    , m_tint(tint) {
    setFixedSize(buttonSize);
    setAccessibleName(tr("Close Keyboard"));
    setToolTip(accessibleName());
    setFocusPolicy(Qt::NoFocus); // a press must not take the focus from the field before it is answered
    setCursor(Qt::PointingHandCursor);
    new platform::PressSqueeze(*this, SquishyButtonStyle());
}

void DoneButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(platform::continuousRoundedPath(rect(), cornerRadius), platform::color(m_tint));
    QRectF symbol(0, 0, symbolSize, symbolSize);
    symbol.moveCenter(QRectF(rect()).center());
    platform::drawSymbol(painter, symbol, QStringLiteral("keyboard.chevron.compact.down"), Qt::white);
}

} // namespace halcyonix
