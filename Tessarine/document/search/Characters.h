#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tessarine {

// The extended grapheme clusters of a short text, in order. They borrow it.
std::vector<std::u16string_view> charactersOf(std::u16string_view text);

// Requires a text.
std::size_t firstCharacterLength(std::u16string_view text);

} // namespace tessarine
