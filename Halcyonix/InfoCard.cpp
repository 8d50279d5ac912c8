#include "Halcyonix/InfoCard.h"

#include "Halcyonix/Environment.h"
#include "Halcyonix/FilledButton.h"
#include "Halcyonix/PictureView.h"
#include "Halcyonix/SquishyButtonStyle.h"
#include "platform/screens/appearance/ContinuousCorners.h"
#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/controls/TextLabel.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>

namespace halcyonix {

namespace {

using platform::Asset;
using platform::TextStyle;

// Points.
constexpr QSize imageSize(40, 40);
constexpr QSize chevronSize(14, 14);
constexpr int markSize = 44;
constexpr int padding = 16;
constexpr qreal cornerRadius = 16;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

} // namespace

InfoCard::InfoCard(const Config& config, std::function<void()> onAction, QWidget* parent)
    : QAbstractButton(parent)
    , m_onAction(std::move(onAction))
    , m_chevron(new PictureView(chevronSize, this))
    , m_mark(new platform::SymbolButton(QStringLiteral("xmark"), tr("Close"), Asset::TextSecondary, this)) {
    auto* row = new QHBoxLayout(this);
    constexpr int inset = ringMargin + padding;
    row->setContentsMargins(inset, inset, inset, inset);
    row->setSpacing(padding - ringMargin);
    auto* image = new PictureView(imageSize, this);
    image->setEither(config.imageName, config.systemImageName, Environment::shared().primaryColor);
    row->addWidget(image, 0, Qt::AlignTop);
    row->addLayout(makeTexts(config), 1);
    auto* end = new QVBoxLayout; // below the mark
    end->addSpacing(markSize - inset);
    end->addWidget(m_chevron, 1, Qt::AlignVCenter);
    row->addLayout(end);
    row->addSpacing(config.cta ? markSize - padding : ringMargin);

    setAccessibleName(config.title);
    setAccessibleDescription(config.bodyText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    setFocusPolicy(config.cta ? Qt::NoFocus : Qt::StrongFocus); // one stop of the focus, not two
    if (!config.cta) turnChevron();
    connect(m_mark, &QAbstractButton::clicked, this, &QWidget::hide);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (m_onAction) m_onAction();
    });
    new platform::PressSqueeze(*this, SquishyButtonStyle());
}

// The texts stand in from the button's ring, and so flush with the button.
QVBoxLayout* InfoCard::makeTexts(const Config& config) {
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    const auto add = [&](const QString& text, TextStyle style, QPalette::ColorRole role) {
        auto* label = platform::makeLabel(text, style, this, role);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        label->setContentsMargins(ringMargin, 0, ringMargin, 0);
        column->addWidget(label);
    };
    add(config.title, TextStyle::Headline, QPalette::WindowText);
    if (!config.bodyText.isEmpty()) add(config.bodyText, TextStyle::Subheadline, QPalette::PlaceholderText);
    column->addStretch(1);
    if (config.cta) {
        auto* button = new FilledButton(*config.cta, Environment::shared().primaryColor, this);
        connect(button, &QAbstractButton::clicked, this, &QAbstractButton::clicked);
        column->addSpacing(padding / 2);
        column->addWidget(button, 0, Qt::AlignLeading);
    }
    return column;
}

QSize InfoCard::sizeHint() const {
    return layout()->sizeHint();
}

int InfoCard::heightForWidth(int width) const {
    return layout()->totalHeightForWidth(width);
}

void InfoCard::turnChevron() {
    m_chevron->setSymbol(isRightToLeft() ? QStringLiteral("chevron.left") : QStringLiteral("chevron.right"),
                         Asset::TextSecondary);
}

// In the corner at the end of the first line, where the layout has no place for it.
void InfoCard::placeMark() {
    const QRect body = rect().adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    const QRect corner(body.right() + 1 - markSize, body.top(), markSize, markSize);
    m_mark->setGeometry(QStyle::visualRect(layoutDirection(), rect(), corner));
}

void InfoCard::resizeEvent(QResizeEvent* /*event*/) {
    placeMark();
}

void InfoCard::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) {
        placeMark();
        if (!m_chevron->isEmpty()) turnChevron();
    }
    QAbstractButton::changeEvent(event);
}

void InfoCard::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    painter.fillPath(platform::continuousRoundedPath(body, cornerRadius), platform::color(Asset::Card));
    if (platform::showsFocusRing(*this)) platform::drawFocusRing(painter, body, cornerRadius);
}

} // namespace halcyonix
