#pragma once

#include "Tessarine/base/TextRange.h"

#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace tessarine::editor {

// The matches in a text, in order and without overlaps. Indexes are zero-based; each operation is O(log n).
class MatchList {
public:
    MatchList() = default;

    explicit MatchList(std::vector<TextRange> ranges)
        : m_ranges(std::move(ranges)) {}

    bool isEmpty() const { return m_ranges.empty(); }

    std::size_t count() const { return m_ranges.size(); }

    const TextRange& at(std::size_t index) const { return m_ranges[index]; }

    // The match that is exactly this range.
    std::optional<std::size_t> indexOf(const TextRange& range) const;

    // The first one that starts at the location or behind, else the first of all. Nothing in an empty list.
    std::optional<std::size_t> nextFrom(std::int64_t location) const;

    // The last one that ends at the location or in front of it, else the last of all.
    std::optional<std::size_t> previousTo(std::int64_t location) const;

    // Those that share a part with the range.
    std::span<const TextRange> within(const TextRange& range) const;

private:
    std::size_t firstFrom(std::int64_t location) const;
    std::size_t firstEndingBehind(std::int64_t location) const;

    std::vector<TextRange> m_ranges;
};

} // namespace tessarine::editor
