#include "Quillet/controls/FancyButton.h"

#include "Halcyonix/PictureView.h"
#include "Quillet/controls/GradientView.h"
#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/controls/TextLabel.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace quillet {

namespace {

// Points.
constexpr QSize imageSize(22, 22);
constexpr int horizontalPadding = 14;
constexpr int verticalPadding = 8;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

constexpr platform::PressStyle pressStyle{.pressedScale = 0.9, .milliseconds = 150};

QLabel* makeWhiteLabel(platform::TextStyle style, QWidget* parent) {
    auto* label = platform::makeLabel({}, style, parent);
    label->setWordWrap(false);
    QPalette white; // on the gradient of either appearance
    white.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(white);
    return label;
}

} // namespace

FancyButton::FancyButton(QWidget* parent)
    : QAbstractButton(parent)
    , m_view(new GradientView(this))
    , m_imageView(new halcyonix::PictureView(imageSize, m_view))
    , m_secondaryLabel(makeWhiteLabel(platform::TextStyle::Footnote, m_view))
    , m_mainLabel(makeWhiteLabel(platform::TextStyle::Headline, m_view))
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

void FancyButton::paintEvent(QPaintEvent* /*event*/) {
    if (!platform::showsFocusRing(*this)) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    platform::drawFocusRing(painter, m_view->geometry(), GradientView::cornerRadius);
}

} // namespace quillet
