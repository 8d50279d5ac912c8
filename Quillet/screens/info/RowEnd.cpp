#include "Quillet/screens/info/RowEnd.h"

#include "platform/screens/appearance/Palette.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace quillet {

RowEnd::RowEnd(QWidget* parent)
    : QWidget(parent) {}

void RowEnd::setFollowing(Follow follow) {
    if (m_follow == follow) return;
    m_follow = follow;
    update();
}

void RowEnd::paintEvent(QPaintEvent* /*event*/) {
    const QColor ground = platform::color(platform::Asset::BackgroundGrey);
    const auto visual = [this](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    QPainter painter(this);
    painter.fillRect(visual(rect().adjusted(fadeWidth, 0, 0, 0)), ground);
    if (m_follow == Follow::None) return;
    QColor clear = ground;
    clear.setAlpha(0);
    const QRect fade = visual(QRect(0, 0, fadeWidth, height()));
    QLinearGradient gradient(fade.topLeft(), fade.topRight());
    const bool isLeftToRight = layoutDirection() == Qt::LeftToRight;
    gradient.setColorAt(0, isLeftToRight ? clear : ground);
    gradient.setColorAt(1, isLeftToRight ? ground : clear);
    painter.fillRect(fade, gradient);
}

} // namespace quillet
