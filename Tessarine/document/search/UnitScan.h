#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace tessarine {

// Code units one of which stands at `offset` behind the start of every match.
struct UnitProbe {
    std::size_t offset = 0;
    std::vector<char16_t> units;
};

// 16 bytes of units of one width.
template <class Unit>
struct UnitBlock {
    using Lanes = std::uint8_t __attribute__((vector_size(16)));

    Lanes lanes;
};

template <>
struct UnitBlock<char16_t> {
    using Lanes = std::uint16_t __attribute__((vector_size(16)));

    Lanes lanes;
};

// Looks through runs of one width for places where two probes agree, 16 bytes at a time. The first probe has
// the offset 0.
template <class Unit>
class UnitScan {
public:
    // Units that the width can not hold are left out.
    UnitScan(const UnitProbe& first, const UnitProbe& second)
        : m_first(blocksOf(first))
        , m_second(blocksOf(second))
        , m_offset(second.offset) {}

    // The first place at `at` or behind where a match may start, or the size. Near the end, where the second
    // probe would look beyond, the first decides alone.
    std::size_t next(std::span<const Unit> units, std::size_t at) const {
        if (m_first.empty()) return units.size();
        for (; at + m_offset + lanes <= units.size(); at += lanes) {
            const Lanes found = equalLanes(m_first, &units[at]) & equalLanes(m_second, &units[at + m_offset]);
            if (const std::size_t lane = firstSet(found); lane < lanes) return at + lane;
        }
        while (at < units.size() && !mayStart(units, at))
            ++at;
        return at;
    }

private:
    using Block = UnitBlock<Unit>;
    using Lanes = typename Block::Lanes;
    using Halves = std::uint64_t __attribute__((vector_size(16)));
    static constexpr std::size_t lanes = 16 / sizeof(Unit);

    static std::vector<Block> blocksOf(const UnitProbe& probe) {
        std::vector<Block> blocks;
        for (const char16_t unit : probe.units)
            if (static_cast<Unit>(unit) == unit) blocks.push_back({Lanes{} + static_cast<Unit>(unit)});
        return blocks;
    }

    // All ones in each lane that one of the set equals.
    static Lanes equalLanes(const std::vector<Block>& set, const Unit* units) {
        Block block;
        std::memcpy(&block, units, sizeof block);
        Lanes equal{};
        for (const Block& unit : set)
            equal |= (Lanes)(block.lanes == unit.lanes);
        return equal;
    }

    static std::size_t firstSet(Lanes found) {
        const auto halves = (Halves)found;
        if ((halves[0] | halves[1]) == 0) return lanes;
        const int bit = halves[0] ? std::countr_zero(halves[0]) : 64 + std::countr_zero(halves[1]);
        return static_cast<std::size_t>(bit) / (8 * sizeof(Unit));
    }

    static bool contains(const std::vector<Block>& set, Unit unit) {
        return std::ranges::any_of(set, [unit](const Block& block) { return block.lanes[0] == unit; });
    }

    bool mayStart(std::span<const Unit> units, std::size_t at) const {
        if (!contains(m_first, units[at])) return false;
        return at + m_offset >= units.size() || contains(m_second, units[at + m_offset]);
    }

    std::vector<Block> m_first; // one block for each unit, which fills it
    std::vector<Block> m_second;
    std::size_t m_offset;
};

static_assert(std::endian::native == std::endian::little, "lane 0 must be the lowest of a word");

} // namespace tessarine
