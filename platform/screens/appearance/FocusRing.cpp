#include "platform/screens/appearance/FocusRing.h"

#include "platform/screens/appearance/InputKind.h"
#include "platform/screens/appearance/Palette.h"

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace platform {

bool showsFocusRing(const QWidget& widget) {
    return currentInput() == InputKind::Keyboard && widget.hasFocus();
}

void drawFocusRing(QPainter& painter, const QRectF& control, double cornerRadius) {
    constexpr double out = focusRingGap + focusRingWidth / 2.0;
    painter.setPen(QPen(color(Asset::Accent), focusRingWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(control.adjusted(-out, -out, out, out), cornerRadius + out, cornerRadius + out);
}

} // namespace platform
