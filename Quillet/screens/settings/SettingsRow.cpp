#include "Quillet/screens/settings/SettingsRow.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controls/ReturnKey.h"
#include "platform/screens/style/Metrics.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <QtWidgets/QStyle>

namespace quillet {

namespace {

using platform::Asset;

constexpr int chevronSize = 14; // points
constexpr int gap = 10;

QFont detailFont() {
    QFont font = platform::font(platform::TextStyle::Subheadline);
    font.setWeight(QFont::Medium);
    return font;
}

} // namespace

SettingsRow::SettingsRow(const QString& title, Icon icon, QWidget* parent)
    : QAbstractButton(parent)
    , m_icon(std::move(icon)) {
    setText(title);
    setAccessibleName(title);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SettingsRow::setDetail(const QString& detail) {
    m_detail = detail;
    setAccessibleDescription(detail);
    update();
}

QSize SettingsRow::sizeHint() const {
    const ColorfulIconLabelStyle style{.accessibilityScale = ColorfulIconLabelStyle::currentScale()};
    return {200, std::max(platform::heightOf(fontMetrics()), style.side() + 12)};
}

void SettingsRow::keyPressEvent(QKeyEvent* event) {
    if (platform::isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void SettingsRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(platform::color(Asset::Selection));
        painter.drawRoundedRect(rect(), platform::cornerRadius, platform::cornerRadius);
    }
    const ColorfulIconLabelStyle style{.color = m_icon.color,
                                       .accessibilityScale = ColorfulIconLabelStyle::currentScale()};
    const QRect inner = rect().adjusted(6, 0, -6, 0);
    const QRect label = inner.adjusted(0, 0, -(chevronSize + gap), 0);
    style.draw(painter, QStyle::visualRect(layoutDirection(), rect(), label), m_icon.symbol, text(),
               layoutDirection());
    if (!m_icon.image.isEmpty()) {
        QSvgRenderer image(QStringLiteral(":/images/%1.svg").arg(m_icon.image));
        const QRect square(inner.left(), inner.center().y() - style.side() / 2, style.side(), style.side());
        image.render(&painter, QStyle::visualRect(layoutDirection(), rect(), square));
    }
    painter.save();
    painter.setFont(detailFont());
    painter.setPen(platform::color(Asset::TextSecondary));
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), label.adjusted(0, 0, -gap, 0)),
                     QStyle::visualAlignment(layoutDirection(), Qt::AlignRight) | Qt::AlignVCenter, m_detail);
    painter.restore();
    const QRect end(inner.right() + 1 - chevronSize, inner.center().y() - chevronSize / 2, chevronSize,
                    chevronSize);
    const bool isLeftToRight = layoutDirection() == Qt::LeftToRight;
    platform::drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), end),
                         isLeftToRight ? QStringLiteral("chevron.right") : QStringLiteral("chevron.left"),
                         platform::color(Asset::TextSecondary));
    constexpr int margin = platform::focusRingGap + platform::focusRingWidth;
    if (platform::showsFocusRing(*this))
        platform::drawFocusRing(painter, QRectF(rect()).adjusted(margin, margin, -margin, -margin),
                                platform::cornerRadius);
}

} // namespace quillet
