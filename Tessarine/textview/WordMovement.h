#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/StringView.h"

#include <cstdint>

namespace tessarine {

// Words as code has them: identifiers, and runs of other characters that are no blanks. A line break is a
// word by itself. Marks belong to what they stand on.
//
// Units: locations in code units, which must lie in the text, else the program stops.
// Cost: what is passed.

// The end of the word behind a location, or behind the blanks there.
std::int64_t wordLimitAfter(const StringView& text, std::int64_t location);

// The start of the word in front of it, or in front of the blanks there.
std::int64_t wordStartBefore(const StringView& text, std::int64_t location);

// What a double click takes: the word or the blanks there, at the end of a line those in front of it. Empty
// in an empty line.
TextRange wordAt(const StringView& text, std::int64_t location);

} // namespace tessarine
