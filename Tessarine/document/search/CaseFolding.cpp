#include "Tessarine/document/search/CaseFolding.h"

#include "Tessarine/base/FatalError.h"

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>

namespace tessarine {

namespace {

// All that any case mapping or folding changes, and some more.
icu::UnicodeSet changingCharacters() {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeSet set;
    for (const UProperty property : {UCHAR_CHANGES_WHEN_CASEMAPPED, UCHAR_CHANGES_WHEN_CASEFOLDED}) {
        const USet* characters = u_getBinaryPropertySet(property, &status);
        if (U_FAILURE(status)) fatalError("ICU has no case foldings.");
        set.addAll(*icu::UnicodeSet::fromUSet(characters));
    }
    return set;
}

std::u32string fullFolding(char32_t character) {
    icu::UnicodeString text(static_cast<UChar32>(character));
    text.foldCase(U_FOLD_CASE_DEFAULT);
    std::u32string folded;
    for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1))
        folded += static_cast<char32_t>(text.char32At(at));
    return folded;
}

} // namespace

FoldedCharacter::FoldedCharacter(std::u32string_view characters)
    : m_count(characters.size()) {
    if (m_count > m_characters.size()) fatalError("A case folding is too long.");
    std::ranges::copy(characters, m_characters.begin());
}

const CaseFolding& CaseFolding::shared() {
    static const CaseFolding folding;
    return folding;
}

CaseFolding::CaseFolding() {
    const icu::UnicodeSet characters = changingCharacters();
    for (std::int32_t range = 0; range < characters.getRangeCount(); ++range)
        for (UChar32 c = characters.getRangeStart(range); c <= characters.getRangeEnd(range); ++c)
            add(static_cast<char32_t>(c));
}

void CaseFolding::add(char32_t character) {
    const std::u32string folded = fullFolding(character);
    if (folded == std::u32string_view(&character, 1)) return;
    m_sources[folded.front()].push_back(character);
    if (folded.size() > 1) m_long.emplace(character, FoldedCharacter(folded));
}

FoldedCharacter CaseFolding::fold(char32_t character) const {
    if (character < 0x80) {
        const bool isCapital = character >= U'A' && character <= U'Z';
        return FoldedCharacter(isCapital ? character + (U'a' - U'A') : character);
    }
    if (const auto found = m_long.find(character); found != m_long.end()) return found->second;
    const UChar32 folded = u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT);
    return FoldedCharacter(static_cast<char32_t>(folded));
}

std::u32string CaseFolding::fold(std::u32string_view text) const {
    std::u32string folded;
    for (const char32_t character : text)
        folded += fold(character).view();
    return folded;
}

std::span<const char32_t> CaseFolding::foldingTo(char32_t character) const {
    const auto found = m_sources.find(character);
    return found == m_sources.end() ? std::span<const char32_t>() : found->second;
}

} // namespace tessarine
