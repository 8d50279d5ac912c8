#include "platform/screens/controllers/BarButton.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controls/ActivityIndicator.h"
#include "platform/screens/controls/ReturnKey.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

// Points.
constexpr int leastSize = 44;
constexpr int inset = 10;
constexpr int gap = 5; // between symbol and text
constexpr double radius = 9;

} // namespace

BarButton::BarButton(Content content, const QString& accessibleName, QWidget* parent)
    : QAbstractButton(parent)
    , m_content(std::move(content)) {
    setTextStyle(*this, m_content.style);
    setAccessibleName(accessibleName);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
}

void BarButton::setBusy(bool isBusy) {
    if (isBusy == (m_spinner != nullptr)) return;
    if (!isBusy) {
        delete layout();
        delete std::exchange(m_spinner, nullptr);
        update();
        return;
    }
    m_spinner = new ActivityIndicator(this);
    auto* middle = new QHBoxLayout(this);
    middle->setContentsMargins(0, 0, 0, 0);
    middle->addWidget(m_spinner);
    m_spinner->show();
    m_spinner->startAnimating();
}

int BarButton::symbolSize() const {
    return std::max(22, fontMetrics().height());
}

QSize BarButton::sizeHint() const {
    int width = 2 * inset;
    if (!m_content.symbol.isEmpty()) width += symbolSize();
    if (!m_content.text.isEmpty())
        width += fontMetrics().horizontalAdvance(m_content.text) + 1; // it rounds down
    if (!m_content.symbol.isEmpty() && !m_content.text.isEmpty()) width += gap;
    return {std::max(leastSize, width), std::max(leastSize, fontMetrics().height() + 16)};
}

void BarButton::paintEvent(QPaintEvent* /*event*/) {
    if (m_spinner) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(3, 4, -3, -4);
    if (isEnabled() && (isDown() || underMouse())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color(Asset::Selection));
        painter.setOpacity(isDown() ? 1 : 0.6);
        painter.drawRoundedRect(body, radius, radius);
        painter.setOpacity(1);
    }
    const QColor tint = color(isEnabled() ? m_content.tint : Asset::TextSecondary);
    if (!isEnabled()) painter.setOpacity(0.6);
    QRect text = rect().adjusted(inset, 0, -inset, 0);
    if (!m_content.symbol.isEmpty()) {
        QRect symbol(0, 0, symbolSize(), symbolSize());
        symbol.moveCenter(rect().center());
        if (!m_content.text.isEmpty()) symbol.moveLeft(inset);
        text.setLeft(symbol.right() + 1 + gap);
        drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), symbol), m_content.symbol, tint);
    }
    painter.setPen(tint);
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), text),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                         Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_content.text, Qt::ElideRight, text.width()));
    if (showsFocusRing(*this)) drawFocusRing(painter, body.adjusted(1, 1, -1, -1), radius);
}

void BarButton::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace platform
