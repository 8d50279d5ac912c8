#pragma once

#include "Halcyonix/SpringAnimator.h"

namespace halcyonix {

// A card from the bottom edge that covers the lower two thirds of its container.
class SheetAnimator : public SpringAnimator {
    Q_OBJECT

public:
    using SpringAnimator::SpringAnimator;

    QRect restFrame(QSize container, const platform::ViewController& presented) const override;
    qreal outOffset(QSize container) const override;
};

} // namespace halcyonix
