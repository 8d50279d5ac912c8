#include "Halcyonix/SheetTransitionDelegate.h"

#include "Halcyonix/SheetAnimator.h"

namespace halcyonix {

std::unique_ptr<SpringAnimator> SheetTransitionDelegate::makeAnimator(AnimationType type) const {
    return std::make_unique<SheetAnimator>(type);
}

} // namespace halcyonix
