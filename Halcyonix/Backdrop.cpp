#include "Halcyonix/Backdrop.h"

#include "platform/screens/appearance/CardShadow.h"
#include "platform/screens/appearance/ContinuousCorners.h"

#include <QtGui/QPainter>

namespace halcyonix {

Backdrop::Backdrop(QWidget* parent)
    : QAbstractButton(parent) {
    setFocusPolicy(Qt::NoFocus); // Escape does the same
    setAccessibleName(tr("Dismiss"));
}

void Backdrop::setCard(const QRect& card, int cornerRadius, platform::Asset ground) {
    if (card == m_card && cornerRadius == m_cornerRadius && ground == m_ground) return;
    update(platform::withCardShadow(m_card));
    m_card = card;
    m_cornerRadius = cornerRadius;
    m_ground = ground;
    update(platform::withCardShadow(m_card));
}

void Backdrop::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintVeil(painter);
    platform::drawCardShadow(painter, m_card, m_cornerRadius);
    // On dark the shadow shows little, and a line sets the card off.
    const bool isDark = platform::currentAppearance() == platform::Appearance::Dark;
    painter.setPen(isDark ? QPen(platform::color(platform::Asset::Separator)) : Qt::NoPen);
    painter.setBrush(platform::color(m_ground));
    painter.drawPath(platform::continuousRoundedPath(m_card, m_cornerRadius));
}

} // namespace halcyonix
