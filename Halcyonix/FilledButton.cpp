#include "Halcyonix/FilledButton.h"

#include "Halcyonix/SquishyButtonStyle.h"
#include "platform/screens/appearance/ContinuousCorners.h"
#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace halcyonix {

namespace {

// Points.
constexpr int leastHeight = 44;
constexpr int textPadding = 24;
constexpr qreal cornerRadius = 12;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

} // namespace

FilledButton::FilledButton(const QString& text, platform::Asset fill, QWidget* parent)
    : QAbstractButton(parent)
    , m_fill(fill) {
    setText(text);
    platform::setTextStyle(*this, platform::TextStyle::Headline);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    new platform::PressSqueeze(*this, SquishyButtonStyle());
}

void FilledButton::setFill(platform::Asset fill) {
    m_fill = fill;
    update();
}

QSize FilledButton::sizeHint() const {
    const int height = std::max(leastHeight, fontMetrics().height() + 20);
    return QSize(fontMetrics().horizontalAdvance(text()) + 2 * textPadding, height) +
           QSize(2 * ringMargin, 2 * ringMargin);
}

void FilledButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    painter.fillPath(platform::continuousRoundedPath(body, cornerRadius), platform::color(m_fill));
    painter.setPen(platform::color(platform::Asset::OnAccent));
    painter.drawText(body, Qt::AlignCenter, text());
    if (platform::showsFocusRing(*this)) platform::drawFocusRing(painter, body, cornerRadius);
}

} // namespace halcyonix
