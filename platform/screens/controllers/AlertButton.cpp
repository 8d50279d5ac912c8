#include "platform/screens/controllers/AlertButton.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controls/ReturnKey.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace platform {

namespace {

// Points.
constexpr int inset = 14;
constexpr double ringInset = 6;
constexpr double ringRadius = 8;

} // namespace

AlertButton::AlertButton(const QString& title, Kind kind, QWidget* parent)
    : QAbstractButton(parent)
    , m_kind(kind) {
    setText(title);
    setAccessibleName(title);
    setTextStyle(*this, kind == Kind::Preferred ? TextStyle::Headline : TextStyle::Body);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void AlertButton::setHasNeighbour(bool hasNeighbour) {
    m_hasNeighbour = hasNeighbour;
    update();
}

QSize AlertButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 1 + 2 * inset,
            std::max(48, fontMetrics().height() + 20)};
}

void AlertButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDown() || underMouse()) {
        painter.setOpacity(isDown() ? 1 : 0.5);
        painter.fillRect(rect(), color(Asset::Selection));
        painter.setOpacity(1);
    }
    painter.fillRect(QRect(0, 0, width(), 1), color(Asset::Separator));
    if (m_hasNeighbour)
        painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, 1, height())),
                         color(Asset::Separator));
    painter.setPen(color(m_kind == Kind::Destructive ? Asset::SystemRed : Asset::Accent));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width() - 2 * inset));
    if (showsFocusRing(*this))
        drawFocusRing(painter, QRectF(rect()).adjusted(ringInset, ringInset, -ringInset, -ringInset),
                      ringRadius);
}

void AlertButton::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace platform
