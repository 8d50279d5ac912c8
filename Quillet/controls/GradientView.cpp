#include "Quillet/controls/GradientView.h"

#include "platform/screens/appearance/ContinuousCorners.h"
#include "platform/screens/appearance/Palette.h"

#include <QtGui/QPainter>

namespace quillet {

GradientView::GradientView(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void GradientView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = rect();
    QLinearGradient gradient(isRightToLeft() ? area.topRight() : area.topLeft(),
                             isRightToLeft() ? area.bottomLeft() : area.bottomRight());
    gradient.setColorAt(0, platform::color(platform::Asset::GradientStart));
    gradient.setColorAt(1, platform::color(platform::Asset::GradientEnd));
    painter.fillPath(platform::continuousRoundedPath(area, cornerRadius), gradient);
}

} // namespace quillet
