#pragma once

#include <QtGui/QImage>

class QAbstractScrollArea;

namespace platform {

// What the view shows right now, at the scale of its screen and opaque: the part in view, without scroll
// bars, selection as it is, and without a caret. Main thread.
QImage imageOf(QAbstractScrollArea& view);

} // namespace platform
