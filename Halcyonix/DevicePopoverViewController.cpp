#include "Halcyonix/DevicePopoverViewController.h"

#include "Halcyonix/BlurView.h"
#include "Halcyonix/PictureView.h"
#include "platform/screens/controls/TextLabel.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace halcyonix {

namespace {

using platform::TextStyle;

// Points.
constexpr int cornerRadius = 24;
constexpr int cardWidth = 320;
constexpr int windowMargin = 20;
constexpr int padding = 32;
constexpr int spacing = 8;
constexpr QSize imageSize(128, 128);

} // namespace

DevicePopoverViewController::DevicePopoverViewController(DevicePopoverConfig config)
    : m_config(std::move(config))
    , m_blurView(new BlurView(this))
    , m_floatingView(new QWidget(this))
    , m_imageView(new PictureView(imageSize, m_floatingView))
    , m_titleLabel(platform::makeLabel(m_config.title, TextStyle::Title, m_floatingView))
    , m_subtitleLabel(platform::makeLabel(m_config.subtitle, TextStyle::Body, m_floatingView,
                                          QPalette::PlaceholderText)) {
    modalPresentationStyle = platform::ModalPresentationStyle::OverCurrentContext;
    setTitle(m_config.title);
}

void DevicePopoverViewController::viewDidLoad() {
    m_imageView->setImage(m_config.image);
    auto* column = new QVBoxLayout(m_floatingView);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(spacing);
    column->addWidget(m_imageView, 0, Qt::AlignHCenter);
    column->addSpacing(spacing);
    for (auto* label : {m_titleLabel, m_subtitleLabel}) {
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label);
    }
    connect(m_blurView, &QAbstractButton::clicked, this, &DevicePopoverViewController::cancelPresentation);
}

void DevicePopoverViewController::viewDidLayoutSubviews() {
    m_blurView->setGeometry(rect());
    const int width = std::min(cardWidth, this->width() - 2 * windowMargin);
    QRect card(0, 0, width, m_floatingView->layout()->totalHeightForWidth(width));
    card.moveCenter(rect().center());
    m_floatingView->setGeometry(card);
    m_blurView->setCard(card, cornerRadius, platform::Asset::Card);
}

} // namespace halcyonix
