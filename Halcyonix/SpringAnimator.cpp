#include "Halcyonix/SpringAnimator.h"

#include "platform/screens/appearance/Motion.h"

namespace halcyonix {

void SpringAnimator::run(State from, State to, platform::Animated animated, std::function<void(State)> place,
                         std::function<void()> complete) {
    if (animated == platform::Animated::No) {
        place(to);
        complete();
        return;
    }
    m_propertyAnimator.setDuration(milliseconds());
    m_propertyAnimator.setEasingCurve(platform::criticallyDampedSpring());
    m_propertyAnimator.setStartValue(0.0);
    m_propertyAnimator.setEndValue(1.0);
    connect(&m_propertyAnimator, &QVariantAnimation::valueChanged, this,
            [from, to, place = std::move(place)](const QVariant& value) {
                const qreal way = value.toReal();
                place({.offset = from.offset + (to.offset - from.offset) * way,
                       .alpha = from.alpha + (to.alpha - from.alpha) * way});
            });
    connect(&m_propertyAnimator, &QVariantAnimation::finished, this, std::move(complete));
    m_propertyAnimator.start();
}

} // namespace halcyonix
