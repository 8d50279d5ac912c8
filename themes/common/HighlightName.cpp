#include "themes/common/HighlightName.h"

#include "Tessarine/theme/CaptureName.h"

#include <algorithm>

namespace tessarine::themes {

namespace {

constexpr std::array<std::string_view, allHighlightNames.size()> rawValues{
    "comment",  "function",    "keyword", "number",           "operator",
    "property", "punctuation", "string",  "variable.builtin",
};

std::optional<HighlightName> ofRawValue(std::string_view value) {
    const auto* const found = std::ranges::find(rawValues, value);
    if (found == rawValues.end()) return std::nullopt;
    return allHighlightNames[static_cast<std::size_t>(found - rawValues.begin())];
}

} // namespace

std::string_view rawValue(HighlightName name) {
    return rawValues[static_cast<std::size_t>(name)];
}

std::optional<HighlightName> highlightName(std::string_view captureName) {
    return findByCaptureName(captureName, ofRawValue);
}

} // namespace tessarine::themes
