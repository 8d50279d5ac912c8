#pragma once

#include <cstddef>
#include <cstdint>

namespace platform::highlight {

// What goes over the helper's pipes. A frame is a 32-bit little-endian length in bytes, and that many bytes.
//
// A request holds RequestHeader, the language and the code, both in UTF-16 of this machine. An answer is JSON
// in UTF-16. The first frame that the helper sends is empty: it is ready.

struct RequestHeader {
    std::uint32_t languageLength; // code units; noLanguage asks for automatic detection
    std::uint32_t sampleSize;     // code units that detection looks at
};

inline constexpr std::uint32_t noLanguage = 0xFFFFFFFF;

// Longer texts are not highlighted, in code units.
inline constexpr std::size_t longestCode = 4 << 20;
inline constexpr std::size_t longestRequest = sizeof(RequestHeader) + 2 * (longestCode + 256);
// An answer is at most some dozen digits a code unit.
inline constexpr std::size_t longestAnswer = 64 * longestCode;

} // namespace platform::highlight
