#include "platform/screens/controllers/SizeClass.h"

#include <QtWidgets/QWidget>

namespace platform {

namespace {

constexpr int regularFrom = 720; // points

} // namespace

SizeClass horizontalSizeClass(const QWidget& widget) {
    return horizontalSizeClass(widget.window()->width());
}

SizeClass horizontalSizeClass(int width) {
    return width < regularFrom ? SizeClass::Compact : SizeClass::Regular;
}

} // namespace platform
