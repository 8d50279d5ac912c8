#pragma once

#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// Pieces of source text from one seed, and places to edit.
class RandomSource {
public:
    explicit RandomSource(std::uint32_t seed)
        : m_engine(seed) {}

    // In [0, limit). The same on every machine, unlike the library's distributions.
    std::int64_t below(std::int64_t limit) {
        return static_cast<std::int64_t>(m_engine() % static_cast<std::uint64_t>(limit));
    }

    std::u16string_view anyOf(std::span<const std::u16string_view> pieces) {
        return pieces[static_cast<std::size_t>(below(static_cast<std::int64_t>(pieces.size())))];
    }

    std::u16string textOf(std::span<const std::u16string_view> pieces, std::int64_t count) {
        std::u16string text;
        for (; count > 0; --count)
            text += anyOf(pieces);
        return text;
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace tessarine
