#pragma once

#include "Tessarine/view/ViewPainter.h"

#include <QtGui/QImage>

namespace tessarine {

// A picture of a tree of views, of the size of its root; the scale is that of pixels to points.
QImage paintedView(View& root, double scale, UserInterfaceStyle style);

} // namespace tessarine
