#pragma once

#include "Tessarine/document/search/CharacterReader.h"
#include "Tessarine/document/search/UnitScan.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// A text to look for as it stands. Where case does not matter, a stretch of text matches whose characters
// fold to what the pattern's fold to, none of them in part. A match never begins inside of a surrogate pair,
// and it ends there only as ICU's do: where case matters and the pattern is more than the lone surrogate it
// ends in.
class LiteralPattern {
public:
    // What may stand behind a match. A prefix may end inside of what a character of the text folds to.
    enum class Kind { whole, prefix };

    // Requires a text.
    LiteralPattern(std::u16string_view text, bool isCaseSensitive, Kind kind = Kind::whole);

    // Where the match that starts at `location` ends, if one does.
    std::optional<std::int64_t> limitOfMatch(CharacterReader& reader, std::int64_t location) const;

    // For runs of this width: where matches may start. What it leaves out is no match.
    template <class Unit>
    UnitScan<Unit> scan() const {
        constexpr char32_t greatest = sizeof(Unit) == 1 ? 0xFF : 0x10FFFF;
        return UnitScan<Unit>(firstProbe(), lastProbe(greatest));
    }

private:
    bool agree(std::u32string_view folded, std::u32string_view rest) const;
    std::optional<std::int64_t> limitOfEqual(CharacterReader& reader, std::int64_t location) const;
    std::optional<std::int64_t> limitOfFolded(CharacterReader& reader, std::int64_t location) const;

    UnitProbe firstProbe() const;

    // The furthest in reach, if all characters of the text up to there are at most `greatest`.
    UnitProbe lastProbe(char32_t greatest) const;

    // The characters of a text that can match from `index` of the pattern on.
    std::vector<char32_t> charactersAt(std::size_t index) const;

    // The units that the pattern's character at `index` takes in every text that matches, or 0 if that
    // varies.
    std::size_t unitsAt(std::size_t index, char32_t greatest) const;

    std::u16string m_text;
    bool m_isCaseSensitive;
    Kind m_kind;
    std::u32string m_characters; // folded where case does not matter
};

} // namespace tessarine
