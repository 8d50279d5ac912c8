#include "Quillet/controls/BorderedLabel.h"

#include "Quillet/controls/Border.h"
#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace quillet {

namespace {

// Points.
constexpr int borderWidth = 4;
constexpr int sideInset = 8;
constexpr int leastHeight = 44;

} // namespace

BorderedLabel::BorderedLabel(const QString& text, QWidget* parent)
    : QWidget(parent)
    , m_label(new QLabel(this)) {
    m_label->setTextFormat(Qt::PlainText);
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setWordWrap(true);
    platform::setSystemFont(*m_label, borderedFontSize);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(sideInset, borderWidth, sideInset, borderWidth);
    row->addWidget(m_label);
    setMinimumHeight(leastHeight);
    setText(text);
}

QString BorderedLabel::text() const {
    return m_label->text();
}

void BorderedLabel::setText(const QString& text) {
    m_label->setText(text);
}

void BorderedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBorder(painter, rect(), borderWidth, platform::color(platform::Asset::Accent));
}

} // namespace quillet
