#pragma once

#include <QtGui/QImage>

class QWidget;

namespace platform {

// What the view shows right now, at the scale of its screen and opaque. Of a view that scrolls the part that
// is seen, without the scroll bars; of a text view with the selection as it is, and without the caret. Main
// thread.
QImage imageOf(const QWidget& view);

} // namespace platform
