#include "platform/screens/appearance/Motion.h"

#include "platform/screens/appearance/DesktopSettings.h"

#include <QtWidgets/QApplication>

#include <cmath>

namespace platform {

namespace {

// The way at time t of 0 to 1. What is left of it then is (1 + w t) e^(-w t), which is a thousandth at t = 1
// for this w; the way is stretched by that thousandth, so that it ends where it should.
qreal springWay(qreal time) {
    constexpr qreal frequency = 9.2334;
    const auto way = [](qreal t) { return 1 - (1 + frequency * t) * std::exp(-frequency * t); };
    return way(time) / way(1);
}

} // namespace

bool reducesMotion() {
    return DesktopSettings::shared().reducesMotion() || !QApplication::isEffectEnabled(Qt::UI_General);
}

QEasingCurve criticallyDampedSpring() {
    QEasingCurve curve;
    curve.setCustomType(springWay);
    return curve;
}

} // namespace platform
