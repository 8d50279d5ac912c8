#include "Halcyonix/ModalViewController.h"

#include "Halcyonix/FilledButton.h"
#include "Halcyonix/GrayView.h"
#include "Halcyonix/PictureView.h"
#include "Halcyonix/SpringAnimator.h"
#include "platform/screens/controls/SymbolButton.h"
#include "platform/screens/controls/TextLabel.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace halcyonix {

namespace {

using platform::Asset;
using platform::TextStyle;

// Points.
constexpr int cornerRadius = 24;
constexpr int cardWidth = 440;
constexpr int windowMargin = 20;
constexpr int padding = 28;
constexpr int spacing = 16;
constexpr QSize imageSize(72, 72);
constexpr QSize itemImageSize(28, 28);
constexpr int closeSize = 44;
constexpr int closeInset = 8;

} // namespace

ModalViewController::ModalViewController(ModalConfig config)
    : m_config(std::move(config))
    , m_backgroundView(new GrayView(this))
    , m_modalContainer(new QWidget(this))
    , m_scroll(new QScrollArea(m_modalContainer))
    , m_content(new QVBoxLayout)
    , m_imageView(new PictureView(imageSize, m_scroll))
    , m_titleLabel(platform::makeLabel(m_config.title, TextStyle::Title, m_scroll))
    , m_bodyLabel(platform::makeLabel(m_config.body.value_or(QString()), TextStyle::Body, m_scroll,
                                      QPalette::PlaceholderText))
    , m_button(new FilledButton({}, m_config.accentColor, m_modalContainer))
    , m_closeButton(new platform::SymbolButton(QStringLiteral("xmark"), tr("Close"), Asset::TextSecondary,
                                               m_modalContainer)) {
    modalPresentationStyle = platform::ModalPresentationStyle::OverCurrentContext;
    setTitle(m_config.title);
}

void ModalViewController::viewDidLoad() {
    fillContent();
    const auto text = m_config.buttonConfig.value_or(ModalButtonConfig()).text;
    m_button->setText(text.value_or(QString()));
    m_button->setVisible(m_config.buttonConfig.has_value());
    auto* card = new QVBoxLayout(m_modalContainer);
    card->setSpacing(padding - spacing / 2);
    card->addWidget(m_scroll, 1);
    card->addWidget(m_button);
    m_closeButton->raise();

    m_backgroundView->setAlpha(SpringAnimator::restState.alpha);
    connect(m_backgroundView, &QAbstractButton::clicked, this, &ModalViewController::cancelPresentation);
    connect(m_closeButton, &QAbstractButton::clicked, this, &ModalViewController::cancelPresentation);
    connect(m_button, &QAbstractButton::clicked, this, &ModalViewController::pressButton);
    setFocusProxy(m_config.buttonConfig ? static_cast<QWidget*>(m_button) : m_closeButton);
}

void ModalViewController::fillContent() {
    m_imageView->setEither(m_config.imageName, m_config.systemImageName, m_config.accentColor);
    m_titleLabel->setAlignment(Qt::AlignHCenter);
    m_bodyLabel->setVisible(m_config.body.has_value());
    auto* content = new QWidget;
    content->setLayout(m_content);
    m_content->setContentsMargins(0, 0, 0, 0);
    m_content->setSpacing(spacing);
    m_content->addWidget(m_imageView, 0, Qt::AlignHCenter);
    m_content->addWidget(m_titleLabel);
    m_content->addWidget(m_bodyLabel);
    for (const auto& item : m_config.items)
        addItem(item);
    m_content->addStretch(1);
    m_scroll->setWidget(content);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->viewport()->setAutoFillBackground(false); // the card's ground shines through
    content->setAutoFillBackground(false);
}

void ModalViewController::addItem(const ModalItem& item) {
    auto* row = new QHBoxLayout;
    row->setSpacing(spacing);
    auto* image = new PictureView(itemImageSize, m_scroll);
    if (item.imageName) image->setImage(*item.imageName, Asset::IconColor);
    row->addWidget(image, 0, Qt::AlignTop);
    if (item.body)
        row->addWidget(platform::makeLabel(*item.body, TextStyle::Body, m_scroll), 1);
    else
        row->addStretch(1);
    m_content->addLayout(row);
}

void ModalViewController::pressButton() {
    if (delegate) delegate->didPressButton(*this);
    dismiss();
}

int ModalViewController::contentHeight(int width) const {
    return m_content->hasHeightForWidth() ? m_content->totalHeightForWidth(width)
                                          : m_content->totalSizeHint().height();
}

// A text that fits has no scroll bar, which would make it narrower and so longer than it is; one that does
// not fit scrolls below the mark in the corner.
void ModalViewController::setScrolling(bool scrolls) {
    m_scroll->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    const int top = scrolls ? closeInset + closeSize : padding;
    m_modalContainer->layout()->setContentsMargins(padding, top, padding, padding);
}

void ModalViewController::placeCard() {
    m_backgroundView->setGeometry(rect());
    const int width = std::min(cardWidth, this->width() - 2 * windowMargin);
    const int buttonHeight =
        m_config.buttonConfig ? m_button->sizeHint().height() + m_modalContainer->layout()->spacing() : 0;
    const int wanted = contentHeight(width - 2 * padding) + buttonHeight + 2 * padding;
    const int height = std::min(wanted, this->height() - 2 * windowMargin);
    setScrolling(height < wanted);
    QRect card(0, 0, width, height);
    card.moveCenter(rect().center());
    if (m_config.position == ModalPosition::Bottom) card.moveBottom(rect().bottom() - windowMargin);
    m_modalContainer->setGeometry(card);
    m_backgroundView->setCard(card, cornerRadius, Asset::Card);
    const QRect corner(width - closeSize - closeInset, closeInset, closeSize, closeSize);
    m_closeButton->setGeometry(QStyle::visualRect(layoutDirection(), QRect(QPoint(), card.size()), corner));
}

void ModalViewController::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown)
        m_scroll->verticalScrollBar()->triggerAction(event->key() == Qt::Key_PageUp
                                                         ? QAbstractSlider::SliderPageStepSub
                                                         : QAbstractSlider::SliderPageStepAdd);
    else
        ViewController::keyPressEvent(event);
}

void ModalViewController::viewDidLayoutSubviews() {
    placeCard();
}

} // namespace halcyonix
