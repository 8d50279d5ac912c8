#include "Halcyonix/SheetAnimator.h"

namespace halcyonix {

namespace {

constexpr qreal restTranslation = 0.33; // of the container's height

int restTop(QSize container) {
    return qRound(container.height() * restTranslation);
}

} // namespace

// The frame ends where the container ends, so that all of the controller can be reached.
QRect SheetAnimator::restFrame(QSize container, const platform::ViewController& /*presented*/) const {
    return {0, restTop(container), container.width(), container.height() - restTop(container)};
}

qreal SheetAnimator::outOffset(QSize container) const {
    return container.height() - restTop(container);
}

} // namespace halcyonix
