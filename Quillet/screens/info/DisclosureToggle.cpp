#include "Quillet/screens/info/DisclosureToggle.h"

#include "Quillet/screens/info/Drawer.h"
#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Motion.h"
#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/controls/ReturnKey.h"

#include <QtGui/QPainter>

#include <numbers>

namespace quillet {

namespace {

constexpr QSize buttonSize(44, 33); // points
constexpr qreal symbolSize = 22;

} // namespace

DisclosureToggle::DisclosureToggle(QWidget* parent)
    : QAbstractButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(QStringLiteral("Tags and Segments"));
    setToolTip(accessibleName());
    connect(this, &QAbstractButton::toggled, this, &DisclosureToggle::turn);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& angle) {
        m_angle = angle.toDouble();
        update();
    });
}

QSize DisclosureToggle::sizeHint() const {
    return buttonSize;
}

void DisclosureToggle::turn(bool isChecked) {
    m_animation.stop();
    m_animation.setStartValue(m_angle);
    m_animation.setEndValue(isChecked ? 0.0 : std::numbers::pi);
    m_animation.setDuration(platform::reducesMotion() || !isVisible() ? 0 : Drawer::milliseconds);
    m_animation.start();
}

void DisclosureToggle::keyPressEvent(QKeyEvent* event) {
    if (platform::isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void DisclosureToggle::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (platform::showsFocusRing(*this)) {
        constexpr int margin = platform::focusRingGap + platform::focusRingWidth;
        platform::drawFocusRing(painter, QRectF(rect()).adjusted(margin, margin, -margin, -margin), 8);
    }
    painter.translate(QRectF(rect()).center());
    painter.rotate(m_angle * 180 / std::numbers::pi);
    platform::drawSymbol(painter, QRectF(-symbolSize / 2, -symbolSize / 2, symbolSize, symbolSize),
                         QStringLiteral("chevron.compact.up"),
                         platform::color(platform::Asset::TextSecondary));
}

} // namespace quillet
