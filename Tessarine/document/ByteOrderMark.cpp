#include "Tessarine/document/ByteOrderMark.h"

#include <algorithm>
#include <array>

namespace tessarine {

std::span<const std::uint8_t> byteOrderMark(TextEncoding encoding) {
    static constexpr std::array<std::uint8_t, 3> utf8{0xEF, 0xBB, 0xBF};
    static constexpr std::array<std::uint8_t, 2> littleEndian{0xFF, 0xFE};
    static constexpr std::array<std::uint8_t, 2> bigEndian{0xFE, 0xFF};
    switch (encoding) {
    case TextEncoding::utf8:
        return utf8;
    case TextEncoding::utf16LittleEndian:
        return littleEndian;
    case TextEncoding::utf16BigEndian:
        return bigEndian;
    case TextEncoding::latin1:
        break;
    }
    return {};
}

bool startsWithMark(std::span<const std::uint8_t> bytes, TextEncoding encoding) {
    const auto mark = byteOrderMark(encoding);
    return !mark.empty() && bytes.size() >= mark.size() && std::ranges::equal(bytes.first(mark.size()), mark);
}

} // namespace tessarine
