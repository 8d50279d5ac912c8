#pragma once

#include <QtCore/QEasingCurve>

namespace platform {

// Whether the user wants little motion: then nothing slides or springs, it is at once where it belongs.
bool reducesMotion();

// The way of a spring of damping ratio 1.0 that is at rest, to a thousandth, after the animation's duration.
QEasingCurve criticallyDampedSpring();

} // namespace platform
