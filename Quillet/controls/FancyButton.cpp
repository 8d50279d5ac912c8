#include "Quillet/controls/FancyButton.h"

#include "Halcyonix/PictureView.h"
#include "Quillet/controls/GradientView.h"
#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>

namespace quillet {

namespace {

// Points.
constexpr QSize imageSize(22, 22);
constexpr int horizontalPadding = 14;
constexpr int verticalPadding = 8;
constexpr int leastTextWidth = 58;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

constexpr platform::PressStyle pressStyle{.pressedScale = 0.9, .milliseconds = 150};

// One line in white, which stands on the gradient of either appearance; cut short where there is no room.
class WhiteLabel : public QLabel {
public:
    WhiteLabel(platform::TextStyle style, QWidget* parent)
        : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        platform::setTextStyle(*this, style);
    }

    QSize minimumSizeHint() const override { return {leastTextWidth, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setPen(Qt::white);
        painter.drawText(rect(), QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter,
                         fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
};

} // namespace

FancyButton::FancyButton(QWidget* parent)
    : QAbstractButton(parent)
    , m_view(new GradientView(this))
    , m_imageView(new halcyonix::PictureView(imageSize, m_view))
    , m_secondaryLabel(new WhiteLabel(platform::TextStyle::Footnote, m_view))
    , m_mainLabel(new WhiteLabel(platform::TextStyle::Headline, m_view))
    , m_squeeze(new platform::PressSqueeze(*this, pressStyle)) {
    auto* margins = new QVBoxLayout(this);
    margins->setContentsMargins(ringMargin, ringMargin, ringMargin, ringMargin);
    margins->addWidget(m_view);
    auto* row = new QHBoxLayout(m_view);
    row->setContentsMargins(horizontalPadding, verticalPadding, horizontalPadding, verticalPadding);
    row->setSpacing(horizontalPadding - 2);
    row->addWidget(m_imageView);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(1);
    lines->addWidget(m_secondaryLabel);
    lines->addWidget(m_mainLabel);
    row->addLayout(lines, 1);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (delegate) delegate->didTap(*this);
    });
}

void FancyButton::setSymbol(const QString& name) {
    m_imageView->setSymbol(name, QColor(Qt::white));
}

void FancyButton::setSecondaryText(const QString& text) {
    m_secondaryLabel->setText(text);
    describe();
}

void FancyButton::setMainText(const QString& text) {
    m_mainLabel->setText(text);
    describe();
}

void FancyButton::describe() {
    setAccessibleName(QStringLiteral("%1, %2").arg(m_secondaryLabel->text(), m_mainLabel->text()));
}

QSize FancyButton::sizeHint() const {
    return layout()->sizeHint();
}

QSize FancyButton::minimumSizeHint() const {
    return layout()->minimumSize();
}

void FancyButton::paintEvent(QPaintEvent* /*event*/) {
    if (!platform::showsFocusRing(*this)) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    platform::drawFocusRing(painter, m_view->geometry(), GradientView::cornerRadius);
}

} // namespace quillet
