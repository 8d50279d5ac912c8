#include "Tessarine/document/search/LiteralPattern.h"

#include "Tessarine/document/search/CaseFolding.h"

#include <algorithm>
#include <unicode/utf16.h>

namespace tessarine {

namespace {

// The end of a run is looked through unit by unit for as long as the last probe reaches.
constexpr std::size_t furthestProbe = 32;

std::u32string codePointsOf(std::u16string_view text) {
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) {
        UChar32 character = 0;
        U16_NEXT(text, at, text.size(), character);
        characters += static_cast<char32_t>(character);
    }
    return characters;
}

char16_t firstUnit(char32_t character) {
    return static_cast<char16_t>(character > 0xFFFF ? U16_LEAD(character) : character);
}

std::size_t unitsOf(char32_t character) {
    return character > 0xFFFF ? 2 : 1;
}

UnitProbe probe(std::size_t offset, const std::vector<char32_t>& characters) {
    UnitProbe probe{offset, {}};
    for (const char32_t character : characters)
        probe.units.push_back(firstUnit(character));
    std::ranges::sort(probe.units);
    probe.units.erase(std::ranges::unique(probe.units).begin(), probe.units.end());
    return probe;
}

} // namespace

LiteralPattern::LiteralPattern(std::u16string_view text, bool isCaseSensitive, Kind kind)
    : m_text(text)
    , m_isCaseSensitive(isCaseSensitive)
    , m_kind(kind)
    , m_characters(codePointsOf(text)) {
    if (!isCaseSensitive) m_characters = CaseFolding::shared().fold(m_characters);
}

std::optional<std::int64_t> LiteralPattern::limitOfMatch(CharacterReader& reader,
                                                         std::int64_t location) const {
    if (reader.splitsCharacter(location)) return std::nullopt;
    return m_isCaseSensitive ? limitOfEqual(reader, location) : limitOfFolded(reader, location);
}

std::optional<std::int64_t> LiteralPattern::limitOfEqual(CharacterReader& reader,
                                                         std::int64_t location) const {
    const std::int64_t limit = location + std::ssize(m_text);
    if (limit > reader.length()) return std::nullopt;
    for (const char16_t unit : m_text)
        if (reader.unitAt(location++) != unit) return std::nullopt;
    if (m_text.size() == 1 && reader.splitsCharacter(limit)) return std::nullopt;
    return limit;
}

std::optional<std::int64_t> LiteralPattern::limitOfFolded(CharacterReader& reader,
                                                          std::int64_t location) const {
    std::u32string_view rest = m_characters;
    while (!rest.empty()) {
        if (location == reader.length()) return std::nullopt;
        const FoldedCharacter folded = CaseFolding::shared().fold(reader.next(location));
        if (!agree(folded.view(), rest)) return std::nullopt;
        rest.remove_prefix(std::min(folded.view().size(), rest.size()));
    }
    return location;
}

bool LiteralPattern::agree(std::u32string_view folded, std::u32string_view rest) const {
    return rest.starts_with(folded) || (m_kind == Kind::prefix && folded.starts_with(rest));
}

UnitProbe LiteralPattern::firstProbe() const {
    return probe(0, charactersAt(0));
}

UnitProbe LiteralPattern::lastProbe(char32_t greatest) const {
    std::size_t index = 0;
    std::size_t offset = 0;
    while (index + 1 < m_characters.size()) {
        const std::size_t units = unitsAt(index, greatest);
        if (units == 0 || offset + units > furthestProbe) break;
        offset += units;
        ++index;
    }
    return probe(offset, charactersAt(index));
}

std::vector<char32_t> LiteralPattern::charactersAt(std::size_t index) const {
    const std::u32string_view rest = std::u32string_view(m_characters).substr(index);
    std::vector<char32_t> characters{rest.front()};
    if (m_isCaseSensitive) return characters;
    const CaseFolding& folding = CaseFolding::shared();
    for (const char32_t character : folding.foldingTo(rest.front()))
        if (agree(folding.fold(character).view(), rest)) characters.push_back(character);
    return characters;
}

std::size_t LiteralPattern::unitsAt(std::size_t index, char32_t greatest) const {
    const std::size_t units = unitsOf(m_characters[index]);
    for (const char32_t character : charactersAt(index)) {
        if (character > greatest) continue;
        const bool isOne = m_isCaseSensitive || CaseFolding::shared().fold(character).view().size() == 1;
        if (!isOne || unitsOf(character) != units) return 0;
    }
    return units;
}

} // namespace tessarine
