#include "platform/screens/controllers/BarTitle.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace platform {

BarTitle::BarTitle(Asset color, QWidget* parent)
    : QLabel(parent)
    , m_color(color) {
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void BarTitle::setColor(Asset color) {
    m_color = color;
    update();
}

void BarTitle::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(color(m_color));
    const auto alignment = QStyle::visualAlignment(layoutDirection(), this->alignment());
    painter.drawText(rect(), static_cast<int>(alignment) | Qt::TextSingleLine,
                     fontMetrics().elidedText(text().simplified(), Qt::ElideRight, width()));
}

} // namespace platform
