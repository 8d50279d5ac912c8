#include "Tessarine/document/LineBreakScanner.h"

#include <array>
#include <cstring>

namespace tessarine {

namespace {

using UnitLanes = std::uint16_t __attribute__((vector_size(16)));
using ByteLanes = std::uint8_t __attribute__((vector_size(16)));
using FlagLanes = std::int8_t __attribute__((vector_size(8)));

static_assert(std::endian::native == std::endian::little, "lane 0 must be the lowest byte of a word");

// One bit for each of eight bytes, which are all ones or all zeros.
std::uint64_t bitsOf(std::uint64_t bytes) {
    return ((bytes & 0x8040201008040201) * 0x0101010101010101) >> 56;
}

std::uint64_t flagsOf(const char16_t* units) {
    UnitLanes lanes;
    std::memcpy(&lanes, units, sizeof lanes);
    const auto flags =
        (lanes == u'\n') | (lanes == u'\r') | (lanes == u'\u0085') | ((lanes & 0xFFFE) == 0x2028);
    return std::bit_cast<std::uint64_t>(__builtin_convertvector(flags, FlagLanes));
}

std::array<std::uint64_t, 2> flagsOf(const unsigned char* bytes) {
    ByteLanes lanes;
    std::memcpy(&lanes, bytes, sizeof lanes);
    return std::bit_cast<std::array<std::uint64_t, 2>>((lanes == 0x0A) | (lanes == 0x0D) | (lanes == 0x85));
}

} // namespace

std::uint64_t LineBreakScanner::breakMask(const char16_t* block) {
    std::uint64_t mask = 0;
    for (unsigned at = 0; at < unitsPerBlock; at += 8)
        mask |= bitsOf(flagsOf(block + at)) << at;
    return mask;
}

std::uint64_t LineBreakScanner::breakMask(const unsigned char* block) {
    std::uint64_t mask = 0;
    for (unsigned at = 0; at < unitsPerBlock; at += 16) {
        const auto flags = flagsOf(block + at);
        mask |= (bitsOf(flags[0]) | bitsOf(flags[1]) << 8) << at;
    }
    return mask;
}

std::optional<LineBreak> rangeOfNextNewLine(std::u16string_view text, std::int64_t location) {
    for (auto at = static_cast<std::size_t>(location); at < text.size(); ++at) {
        if (!LineBreakScanner::isLineBreak(text[at])) continue;
        const bool isPair = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
        return LineBreak{static_cast<std::int64_t>(at), isPair ? 2 : 1};
    }
    return std::nullopt;
}

} // namespace tessarine
