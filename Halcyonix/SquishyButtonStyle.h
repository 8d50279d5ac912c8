#pragma once

#include "platform/screens/controls/PressSqueeze.h"

namespace halcyonix {

// The kit's buttons give way a little while they are pressed.
struct SquishyButtonStyle : platform::PressStyle {
    constexpr SquishyButtonStyle()
        : PressStyle{.pressedScale = 0.98, .milliseconds = 150} {}
};

} // namespace halcyonix
