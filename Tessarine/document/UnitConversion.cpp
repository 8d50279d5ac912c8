#include "Tessarine/document/UnitConversion.h"

#include <algorithm>
#include <cstring>

namespace tessarine {

namespace {

constexpr std::size_t blockUnits = 32;

template <typename From, typename To>
void convert(const From* __restrict source, To* __restrict destination, std::size_t count) {
    std::size_t i = 0;
    for (; i + blockUnits <= count; i += blockUnits)
        for (std::size_t k = 0; k < blockUnits; ++k)
            destination[i + k] = static_cast<To>(source[i + k]);
    for (; i < count; ++i)
        destination[i] = static_cast<To>(source[i]);
}

// All bits that are set in any of the block's words.
template <typename Unit>
std::uint64_t unionOfBlock(const Unit* block) {
    std::uint64_t words[blockUnits * sizeof(Unit) / sizeof(std::uint64_t)];
    std::memcpy(words, block, sizeof(words));
    std::uint64_t bits = 0;
    for (const std::uint64_t word : words)
        bits |= word;
    return bits;
}

} // namespace

void copyUnits(std::span<const std::uint8_t> source, std::uint8_t* destination) {
    if (!source.empty()) std::memcpy(destination, source.data(), source.size_bytes());
}

void copyUnits(std::span<const char16_t> source, char16_t* destination) {
    if (!source.empty()) std::memcpy(destination, source.data(), source.size_bytes());
}

void copyUnits(std::span<const std::uint8_t> source, char16_t* destination) {
    convert(source.data(), destination, source.size());
}

void copyUnits(std::span<const char16_t> source, std::uint8_t* destination) {
    convert(source.data(), destination, source.size());
}

bool isNarrow(std::span<const char16_t> units) {
    std::size_t i = 0;
    for (; i + blockUnits <= units.size(); i += blockUnits)
        if (unionOfBlock(&units[i]) & 0xFF00FF00FF00FF00) return false;
    return std::ranges::all_of(units.subspan(i), [](char16_t unit) { return unit < 0x100; });
}

std::size_t asciiPrefix(std::span<const std::uint8_t> bytes) {
    std::size_t i = 0;
    while (i + blockUnits <= bytes.size() && !(unionOfBlock(&bytes[i]) & 0x8080808080808080))
        i += blockUnits;
    while (i < bytes.size() && bytes[i] < 0x80)
        ++i;
    return i;
}

bool equalUnits(std::span<const std::uint8_t> narrow, std::span<const char16_t> wide) {
    return std::equal(narrow.begin(), narrow.end(), wide.begin());
}

bool equalUnits(std::span<const char16_t> a, std::span<const char16_t> b) {
    return a.empty() || std::memcmp(a.data(), b.data(), a.size_bytes()) == 0;
}

} // namespace tessarine
