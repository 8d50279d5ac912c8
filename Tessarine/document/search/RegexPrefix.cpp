#include "Tessarine/document/search/RegexPrefix.h"

#include <algorithm>
#include <unicode/utf16.h>

namespace tessarine {

namespace {

// Whether the whole pattern may be one of several. Parentheses in sets, comments and some escapes are not
// told from those of groups; where they might be, the answer is yes.
bool mayHaveAlternatives(std::u16string_view pattern) {
    if (pattern.find(u'|') == pattern.npos) return false;
    if (pattern.find_first_of(u"[#") != pattern.npos) return true;
    int depth = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == u'\\') {
            ++i;
            if (i < pattern.size() && (pattern[i] == u'Q' || pattern[i] == u'c')) return true;
        } else if (pattern[i] == u'(') {
            ++depth;
        } else if (pattern[i] == u')') {
            --depth;
        } else if (pattern[i] == u'|' && depth <= 0) {
            return true;
        }
    }
    return false;
}

bool isQuantifier(char16_t character) {
    return std::u16string_view(u"?*+{").find(character) != std::u16string_view::npos;
}

} // namespace

std::u16string prefixOfMatches(std::u16string_view pattern) {
    if (mayHaveAlternatives(pattern)) return {};
    std::size_t length = std::min(pattern.find_first_of(regexMetacharacters), pattern.size());
    if (length > 0 && length < pattern.size() && isQuantifier(pattern[length])) --length;
    std::u16string prefix(pattern.substr(0, length));
    // An escape behind a lone surrogate may make a pair of it.
    const auto surrogate = std::ranges::find_if(prefix, [](char16_t unit) { return U16_IS_SURROGATE(unit); });
    prefix.erase(surrogate, prefix.end());
    return prefix;
}

} // namespace tessarine
