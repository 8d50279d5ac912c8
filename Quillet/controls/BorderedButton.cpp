#include "Quillet/controls/BorderedButton.h"

#include "Halcyonix/SquishyButtonStyle.h"
#include "Quillet/controls/Border.h"
#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace quillet {

namespace {

// Points.
constexpr int leastHeight = 44;
constexpr int textPadding = 20;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

qreal widthOf(BorderedButton::Mode mode) {
    return mode == BorderedButton::Mode::little ? 2 : 4;
}

} // namespace

BorderedButton::BorderedButton(const QString& text, QWidget* parent)
    : QAbstractButton(parent) {
    setText(text);
    platform::setSystemFont(*this, borderedFontSize);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    new platform::PressSqueeze(*this, halcyonix::SquishyButtonStyle());
}

void BorderedButton::setMode(Mode mode) {
    m_mode = mode;
    update();
}

QSize BorderedButton::sizeHint() const {
    const int height = std::max(leastHeight, fontMetrics().height() + 20);
    return QSize(fontMetrics().horizontalAdvance(text()) + 2 * textPadding, height) +
           QSize(2 * ringMargin, 2 * ringMargin);
}

void BorderedButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    const QColor tint =
        platform::color(isEnabled() ? platform::Asset::Accent : platform::Asset::TextSecondary);
    drawBorder(painter, body, widthOf(m_mode), tint);
    painter.setPen(tint);
    painter.drawText(body, Qt::AlignCenter, text());
    if (platform::showsFocusRing(*this)) platform::drawFocusRing(painter, body, borderRadius);
}

} // namespace quillet
