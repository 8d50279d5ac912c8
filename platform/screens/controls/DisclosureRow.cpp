#include "platform/screens/controls/DisclosureRow.h"

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controls/ReturnKey.h"
#include "platform/screens/style/Fields.h"
#include "platform/screens/style/Metrics.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

namespace platform {

namespace {

constexpr int chevronSize = 14;
constexpr int gap = 8;

} // namespace

DisclosureRow::DisclosureRow(QWidget* parent)
    : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DisclosureRow::setPlaceholderText(const QString& text) {
    m_placeholderText = text;
    update();
}

QSize DisclosureRow::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + chevronSize + 4 * gap, heightOf(fontMetrics())};
}

void DisclosureRow::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void DisclosureRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style::drawField(option, painter);
    const QRect inner = style::fieldContents(rect());
    const QRect line = inner.adjusted(0, 0, -(chevronSize + gap), 0);
    const bool isEmpty = text().isEmpty();
    const QString shown =
        fontMetrics().elidedText(isEmpty ? m_placeholderText : text(), Qt::ElideRight, line.width());
    painter.setPen(color(isEmpty ? Asset::TextSecondary : Asset::Text));
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), line),
                     QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter, shown);
    const QRect end(inner.right() + 1 - chevronSize, inner.center().y() - chevronSize / 2, chevronSize,
                    chevronSize);
    const bool isLeftToRight = layoutDirection() == Qt::LeftToRight;
    drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), end),
               isLeftToRight ? QStringLiteral("chevron.right") : QStringLiteral("chevron.left"),
               color(Asset::TextSecondary));
}

} // namespace platform
