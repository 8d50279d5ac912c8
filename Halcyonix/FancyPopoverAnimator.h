#pragma once

#include "Halcyonix/SpringAnimator.h"

namespace halcyonix {

// A card in the middle of its container, as large as the controller's preferred content size where there is
// room for it.
class FancyPopoverAnimator : public SpringAnimator {
    Q_OBJECT

public:
    using SpringAnimator::SpringAnimator;

    QRect restFrame(QSize container, const platform::ViewController& presented) const override;
    qreal outOffset(QSize container) const override;
    int milliseconds() const override;
};

} // namespace halcyonix
