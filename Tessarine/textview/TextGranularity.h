#pragma once

#include <cstdint>

namespace tessarine {

// The units that an input system counts in. Paragraph and line are both a line of the document, without its
// break.
enum class TextGranularity : std::uint8_t { character, word, paragraph, line, document };

} // namespace tessarine
