#include "Tessarine/editing/LocalizedString.h"

#include <array>
#include <utility>

namespace tessarine {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 5> localizable{{
    {typingActionName, "Typing"},
    {replaceAllActionName, "Replace All"},
    {moveLinesUpActionName, "Move Lines Up"},
    {moveLinesDownActionName, "Move Lines Down"},
    {replaceItemTitle, "Replace"},
}};

} // namespace

std::string localizedString(std::string_view key) {
    for (const auto& [knownKey, text] : localizable)
        if (knownKey == key) return std::string(text);
    return std::string(key);
}

} // namespace tessarine
