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

namespace halcyonix {

namespace {

using platform::Asset;
using platform::TextStyle;

// Points.
constexpr QSize imageSize(40, 40);
constexpr QSize chevronSize(14, 14);
constexpr int padding = 16;
constexpr qreal cornerRadius = 16;
constexpr int ringMargin = platform::focusRingGap + platform::focusRingWidth;

} // namespace

InfoCard::InfoCard(const Config& config, std::function<void()> onAction, QWidget* parent)
    : QAbstractButton(parent)
    , m_onAction(std::move(onAction))
    , m_chevron(new PictureView(chevronSize, this)) {
    const int inset = ringMargin + padding;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(inset, inset, ringMargin, inset);
    row->setSpacing(padding);
    auto* image = new PictureView(imageSize, this);
    image->setEither(config.imageName, config.systemImageName, Environment::shared().primaryColor);
    row->addWidget(image, 0, Qt::AlignTop);
    row->addWidget(makeTexts(config), 1);
    auto* ends = new QVBoxLayout;
    ends->setContentsMargins(0, -padding, 0, 0); // the mark is in the corner
    ends->setSpacing(0);
    auto* close =
        new platform::SymbolButton(QStringLiteral("xmark"), tr("Close"), Asset::TextSecondary, this);
    connect(close, &QAbstractButton::clicked, this, &QWidget::hide);
    ends->addWidget(close);
    ends->addWidget(m_chevron, 0, Qt::AlignHCenter);
    ends->addStretch(1);
    row->addLayout(ends);

    setAccessibleName(config.title);
    setAccessibleDescription(config.bodyText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    setFocusPolicy(config.cta ? Qt::NoFocus : Qt::StrongFocus); // one stop of the focus, not two
    m_chevron->setVisible(!config.cta);
    if (!config.cta) turnChevron();
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (m_onAction) m_onAction();
    });
    new platform::PressSqueeze(*this, SquishyButtonStyle());
}

QWidget* InfoCard::makeTexts(const Config& config) {
    auto* texts = new QWidget(this);
    auto* column = new QVBoxLayout(texts);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(platform::makeLabel(config.title, TextStyle::Headline, texts));
    if (!config.bodyText.isEmpty())
        column->addWidget(
            platform::makeLabel(config.bodyText, TextStyle::Subheadline, texts, QPalette::PlaceholderText));
    if (config.cta) {
        auto* button = new FilledButton(*config.cta, Environment::shared().primaryColor, texts);
        connect(button, &QAbstractButton::clicked, this, &QAbstractButton::clicked);
        column->addSpacing(padding / 2);
        column->addWidget(button, 0, Qt::AlignLeading);
    }
    return texts;
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

void InfoCard::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange && !m_chevron->isEmpty()) turnChevron();
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
