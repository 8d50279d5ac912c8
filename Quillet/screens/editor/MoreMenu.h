#pragma once

#include "platform/screens/menus/Menu.h"

namespace quillet {

struct MoreMenuActions {
    std::function<void()> editDetails;
    std::function<void()> remove;
    std::function<void()> shareImage;
    std::function<void()> shareText;
};

// What can be done with the snippet on screen.
platform::Menu moreMenu(MoreMenuActions actions);

} // namespace quillet
