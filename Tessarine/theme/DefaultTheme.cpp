#include "Tessarine/theme/DefaultTheme.h"

#include "Tessarine/theme/CaptureName.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessarine {

namespace {

using namespace semanticColors;

constexpr std::array<std::pair<std::string_view, Color>, 11> colorsByName{{
    {"operator", secondaryLabel},
    {"keyword", systemPurple},
    {"variable", label},
    {"string", systemGreen},
    {"comment", secondaryLabel},
    {"number", systemOrange},
    {"constant", systemOrange},
    {"constant.builtin", systemRed},
    {"property", systemBlue},
    {"punctuation.bracket", secondaryLabel},
    {"punctuation.delimiter", secondaryLabel},
}};

std::optional<Color> colorNamed(std::string_view name) {
    const auto* const found =
        std::ranges::find(colorsByName, name, &std::pair<std::string_view, Color>::first);
    return found == colorsByName.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

std::optional<Color> DefaultTheme::textColor(std::string_view captureName) const {
    return findByCaptureName(captureName, colorNamed);
}

std::optional<Font> DefaultTheme::font(std::string_view captureName) const {
    return findByCaptureName(captureName, [](std::string_view name) {
        return name == "keyword" ? std::optional(Font{"Menlo-Bold", 14, {}}) : std::nullopt;
    });
}

} // namespace tessarine
