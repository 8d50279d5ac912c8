#pragma once

#include "Tessarine/base/Size.h"
#include "Tessarine/base/UserInterfaceStyle.h"
#include "Tessarine/layout/View.h"

#include <QtGui/QImage>

namespace tessarine {

// A picture of a view and all in it; the size in points, of which each is `scale` pixels.
QImage paintedView(View& view, Size size, int scale, UserInterfaceStyle style);

} // namespace tessarine
