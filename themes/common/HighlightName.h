#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace tessarine::themes {

// The kinds of captures that the themes tell apart.
enum class HighlightName {
    Comment,
    Function,
    Keyword,
    Number,
    Operator,
    Property,
    Punctuation,
    String,
    VariableBuiltin,
};

inline constexpr std::array allHighlightNames{
    HighlightName::Comment,     HighlightName::Function, HighlightName::Keyword,
    HighlightName::Number,      HighlightName::Operator, HighlightName::Property,
    HighlightName::Punctuation, HighlightName::String,   HighlightName::VariableBuiltin,
};

std::string_view rawValue(HighlightName name);

// Of a capture: by its whole name, else by the longest start of it between dots.
std::optional<HighlightName> highlightName(std::string_view captureName);

} // namespace tessarine::themes
