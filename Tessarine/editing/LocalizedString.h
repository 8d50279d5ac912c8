#pragma once

#include <string>
#include <string_view>

namespace tessarine {

// Keys of localizedString(): what undo is called after.
inline constexpr std::string_view typingActionName = "undo.action_name.typing";
inline constexpr std::string_view replaceAllActionName = "undo.action_name.replace_all";
inline constexpr std::string_view moveLinesUpActionName = "undo.action_name.move_lines_up";
inline constexpr std::string_view moveLinesDownActionName = "undo.action_name.move_lines_down";

// A menu's item.
inline constexpr std::string_view replaceItemTitle = "menu.item_title.replace";

// The text of the engine's own table "Localizable"; of a key that it does not have the key itself.
std::string localizedString(std::string_view key);

} // namespace tessarine
