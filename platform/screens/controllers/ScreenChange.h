#pragma once

#include "platform/screens/controllers/PictureSlide.h"
#include "platform/screens/controllers/Presentation.h"

#include <functional>

namespace platform {

// One screen takes the place of another. The new one is there at once, with the focus if the view had it;
// what moves are pictures, and both are told "did" when those have come to rest. Main thread.
struct ScreenChange {
    QWidget& view; // of which the pictures are taken
    ViewController& from;
    ViewController& to;
    PictureSlide::Way way;
    Animated animated;
    std::function<void()> settle;    // puts what lies around where it belongs, when `from` is hidden
    std::function<void()> done = {}; // at rest
};

void run(ScreenChange change);

} // namespace platform
