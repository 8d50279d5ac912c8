#pragma once

#include <string>
#include <string_view>

namespace tessarine {

// The characters that mean something else than themselves in a regular expression.
inline constexpr std::u16string_view regexMetacharacters = u"\\^$.|?*+()[]{}";

// A text that every match of the regular expression begins with, up to case where case does not matter. Empty
// where there is none or it is not plain to see. Of an invalid pattern it is any text.
std::u16string prefixOfMatches(std::u16string_view pattern);

} // namespace tessarine
