#include "examples/editor/files/Windows1252.h"

#include <algorithm>
#include <array>

namespace tessarine::editor {

namespace {

constexpr std::uint8_t firstSign = 0x80;

// What the bytes from 0x80 to 0x9F stand for.
constexpr std::array<char16_t, 32> signs{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                         0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool isAmongSigns(char16_t unit) {
    return unit >= firstSign && unit < firstSign + signs.size();
}

} // namespace

char16_t fromWindows1252(std::uint8_t byte) {
    return isAmongSigns(byte) ? signs[byte - firstSign] : byte;
}

std::optional<std::uint8_t> toWindows1252(char16_t unit) {
    if (unit <= 0xFF && !isAmongSigns(unit)) return static_cast<std::uint8_t>(unit);
    const auto* const sign = std::ranges::find(signs, unit);
    if (sign == signs.end()) return std::nullopt;
    return static_cast<std::uint8_t>(firstSign + (sign - signs.begin()));
}

} // namespace tessarine::editor
