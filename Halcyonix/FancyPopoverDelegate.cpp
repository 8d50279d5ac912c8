#include "Halcyonix/FancyPopoverDelegate.h"

#include "Halcyonix/FancyPopoverAnimator.h"

namespace halcyonix {

std::unique_ptr<SpringAnimator> FancyPopoverDelegate::makeAnimator(AnimationType type) const {
    return std::make_unique<FancyPopoverAnimator>(type);
}

} // namespace halcyonix
