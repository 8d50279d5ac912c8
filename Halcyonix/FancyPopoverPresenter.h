#pragma once

#include "Halcyonix/FancyPopoverDelegate.h"

#include <functional>

namespace halcyonix {

// Presents controllers on a card in the middle of the window. Main thread.
class FancyPopoverPresenter {
public:
    // Over the window of `presenter`. A controller without a preferred content size gets one that fits the
    // presenter. `completion` runs when the card has come to rest.
    void present(std::unique_ptr<platform::ViewController> controller, platform::ViewController& presenter,
                 std::function<void()> completion = {});

    // Of the latest presentation; null before the first.
    const std::shared_ptr<FancyPopoverDelegate>& transition() const { return m_transition; }

private:
    std::shared_ptr<FancyPopoverDelegate> m_transition;
};

} // namespace halcyonix
