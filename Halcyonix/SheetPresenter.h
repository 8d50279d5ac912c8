#pragma once

#include "Halcyonix/SheetTransitionDelegate.h"

#include <functional>

namespace halcyonix {

// Presents controllers as sheets that cover the lower two thirds of the window. Main thread.
class SheetPresenter {
public:
    // Over the window of `presenter`; `completion` runs when the sheet has come to rest.
    void present(std::unique_ptr<platform::ViewController> controller, platform::ViewController& presenter,
                 std::function<void()> completion = {});

    // Of the latest presentation; null before the first.
    const std::shared_ptr<SheetTransitionDelegate>& transition() const { return m_transition; }

private:
    std::shared_ptr<SheetTransitionDelegate> m_transition;
};

} // namespace halcyonix
