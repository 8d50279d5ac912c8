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

// Without what only says where a match may begin.
std::u16string_view withoutAnchors(std::u16string_view pattern) {
    while (true) {
        if (pattern.starts_with(u"^"))
            pattern.remove_prefix(1);
        else if (pattern.starts_with(u"\\b"))
            pattern.remove_prefix(2);
        else
            return pattern;
    }
}

// Whether what stands in front may be repeated or left out; a comment or an empty quotation may stand between
// it and the quantifier.
bool mayBeQuantified(std::u16string_view rest) {
    return rest.starts_with(u"(?#") || rest.starts_with(u"\\Q") ||
           (!rest.empty() && std::u16string_view(u"?*+{").contains(rest.front()));
}

} // namespace

std::u16string prefixOfMatches(std::u16string_view pattern) {
    if (mayHaveAlternatives(pattern)) return {};
    pattern = withoutAnchors(pattern);
    std::size_t length = std::min(pattern.find_first_of(regexMetacharacters), pattern.size());
    if (length > 0 && mayBeQuantified(pattern.substr(length))) --length;
    std::u16string prefix(pattern.substr(0, length));
    // An escape behind a lone surrogate may make a pair of it.
    const auto surrogate = std::ranges::find_if(prefix, [](char16_t unit) { return U16_IS_SURROGATE(unit); });
    prefix.erase(surrogate, prefix.end());
    return prefix;
}

} // namespace tessarine
