#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/StringView.h"

#include <cstdint>

namespace tessarine {

// Words as code has them: identifiers, and runs of other characters that are no blanks. A line break is a
// word by itself. Characters are composed ones, so marks go with what they stand on.
//
// Units: locations in code units, which must lie in the text, else the program stops.
// Cost: what is passed.

// The end of the next word. Blanks in front of it are passed with it, but not those at the end of a line.
std::int64_t wordLimitAfter(const StringView& text, std::int64_t location);

// The start of the word before, with the blanks behind it, but not those at the start of a line.
std::int64_t wordStartBefore(const StringView& text, std::int64_t location);

// All characters of the same kind as the one at the location, which is in front of the text's end, around it.
TextRange wordContaining(const StringView& text, std::int64_t location);

// What a double click takes: the word or the blanks there, at the end of a line those in front of it. Empty
// in an empty line.
TextRange wordAt(const StringView& text, std::int64_t location);

} // namespace tessarine
