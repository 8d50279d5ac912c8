#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessarine {

// What one character folds to.
class FoldedCharacter {
public:
    explicit FoldedCharacter(char32_t character)
        : m_characters{character}
        , m_count(1) {}

    explicit FoldedCharacter(std::u32string_view characters);

    std::u32string_view view() const { return {m_characters.data(), m_count}; }

private:
    std::array<char32_t, 3> m_characters{}; // no folding is longer
    std::size_t m_count;
};

// Full case folding as regular expressions compare by it: two characters that fold to the same are equal, and
// one may fold to several ("ß" to "ss"). Lone surrogates are characters by themselves. Any thread.
class CaseFolding {
public:
    // Made at its first use.
    static const CaseFolding& shared();

    FoldedCharacter fold(char32_t character) const;
    std::u32string fold(std::u32string_view text) const;

    // The other characters whose foldings begin with `character`, which is a folded one.
    std::span<const char32_t> foldingTo(char32_t character) const;

private:
    CaseFolding();

    void add(char32_t character);

    std::unordered_map<char32_t, FoldedCharacter> m_long; // by character: the foldings of several
    std::unordered_map<char32_t, std::vector<char32_t>> m_sources;
};

} // namespace tessarine
