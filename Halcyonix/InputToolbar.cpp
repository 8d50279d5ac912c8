#include "Halcyonix/InputToolbar.h"

#include "platform/screens/appearance/ContinuousCorners.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <algorithm>

namespace halcyonix {

namespace {

// Points.
constexpr int barHeight = 44;
constexpr qreal cornerRadius = 12;
constexpr int leadingInset = 16;
constexpr int trailingInset = 6;
constexpr int readableLimit = 672;
constexpr int readableMargin = 16;

} // namespace

InputToolbar::InputToolbar(platform::Asset tint, QWidget* parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
    , m_doneButton(new DoneButton(tint, this)) {
    setFixedHeight(barHeight);
    m_row->setContentsMargins(leadingInset, 0, trailingInset, 0);
    m_row->addStretch(1);
    m_row->addWidget(m_doneButton);
}

QLabel& InputToolbar::placeHolderButton() {
    if (!m_placeHolderButton) {
        m_placeHolderButton = new QLabel(this);
        m_placeHolderButton->setForegroundRole(QPalette::PlaceholderText);
        m_placeHolderButton->setTextFormat(Qt::PlainText);
        m_row->insertWidget(0, m_placeHolderButton);
    }
    return *m_placeHolderButton;
}

void InputToolbar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(platform::color(platform::Asset::Separator));
    painter.setBrush(platform::color(platform::Asset::BackgroundGrey));
    painter.drawPath(
        platform::continuousRoundedPath(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius));
}

int readableWidth(int available) {
    return std::clamp(available - 2 * readableMargin, 0, readableLimit);
}

} // namespace halcyonix
