#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessarine {

// Copies of code units between the two widths that chunks store. Source and destination must not overlap, and
// the destination has room for all. The loops go in blocks of a constant size, which compilers vectorise.

void copyUnits(std::span<const std::uint8_t> source, std::uint8_t* destination);
void copyUnits(std::span<const std::uint8_t> source, char16_t* destination);
void copyUnits(std::span<const char16_t> source, char16_t* destination);

// Requires isNarrow(source).
void copyUnits(std::span<const char16_t> source, std::uint8_t* destination);

// Whether every unit is below U+0100.
bool isNarrow(std::span<const char16_t> units);

// How many bytes from the start on are below 0x80.
std::size_t asciiPrefix(std::span<const std::uint8_t> bytes);

// Whether both hold the same code units. Requires the same size.
bool equalUnits(std::span<const std::uint8_t> narrow, std::span<const char16_t> wide);
bool equalUnits(std::span<const char16_t> a, std::span<const char16_t> b);

} // namespace tessarine
