#include "Tessarine/editing/LocalizedString.h"

#include <array>
#include <utility>

namespace tessarine {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 4> localizable{{
    {typingActionName, "Typing"},
    {replaceAllActionName, "Replace All"},
    {"undo.action_name.move_lines_up", "Move Lines Up"},
    {"undo.action_name.move_lines_down", "Move Lines Down"},
}};

} // namespace

std::string localizedString(std::string_view key) {
    for (const auto& [knownKey, text] : localizable)
        if (knownKey == key) return std::string(text);
    return std::string(key);
}

} // namespace tessarine
