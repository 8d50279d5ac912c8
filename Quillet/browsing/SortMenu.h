#pragma once

#include "platform/screens/menus/Menu.h"

#include <functional>

namespace quillet {

// The orders that the list can have, the one in force marked. `setSort` is called with the setting's new
// value.
platform::Menu sortMenu(qint64 sortIndex, const std::function<void(qint64)>& setSort);

} // namespace quillet
