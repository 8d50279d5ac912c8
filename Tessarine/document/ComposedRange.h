#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/TextSnapshot.h"

#include <cstdint>

namespace tessarine {

// The range grown to whole composed characters, which are extended grapheme clusters: a letter with its
// marks, an emoji with its modifiers, a pair of regional indicators. CR LF is one of them, so neither end of
// the result ever lies between the two. An empty range inside of a character gives that character, one in
// front of a character gives that one, and one at the end of the text stays empty.
//
// The range must lie in the text, which is below 2^31 code units. Any thread.
// Cost: O(log n) and the characters around; between letters below U+0300 ICU is not asked.
TextRange composedRange(const TextSnapshot& text, std::int64_t location, std::int64_t length = 0);

} // namespace tessarine
