#pragma once

#include <string>
#include <string_view>

namespace tessarine {

// What undo is called after. Keys of localizedString().
inline constexpr std::string_view typingActionName = "undo.action_name.typing";
inline constexpr std::string_view replaceAllActionName = "undo.action_name.replace_all";

// The text of the engine's own table "Localizable"; of a key that it does not have the key itself.
std::string localizedString(std::string_view key);

} // namespace tessarine
