#include "Halcyonix/FancyPopoverAnimator.h"

#include "platform/screens/controllers/ViewController.h"

namespace halcyonix {

namespace {

// Points.
constexpr QSize windowMargins(40, 160);
constexpr qreal dismissalTranslation = 1000;

} // namespace

QRect FancyPopoverAnimator::restFrame(QSize container, const platform::ViewController& presented) const {
    QRect frame(QPoint(), presented.preferredContentSize().boundedTo(container - windowMargins));
    frame.moveCenter(QRect(QPoint(), container).center());
    return frame;
}

qreal FancyPopoverAnimator::outOffset(QSize container) const {
    return animationType == AnimationType::Present ? container.height() : dismissalTranslation;
}

int FancyPopoverAnimator::milliseconds() const {
    return animationType == AnimationType::Present ? SpringAnimator::milliseconds() : 800;
}

} // namespace halcyonix
