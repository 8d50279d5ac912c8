#include "examples/editor/find/FindQuery.h"

#include "Tessarine/document/search/MatchFinder.h"
#include "Tessarine/document/search/RegexPrefix.h"
#include "Tessarine/document/search/ReplaceAll.h"

#include <optional>
#include <string>

namespace tessarine::editor {

namespace {

std::u16string quoted(std::u16string_view text) {
    std::u16string pattern;
    for (const char16_t unit : text) {
        if (regexMetacharacters.find(unit) != std::u16string_view::npos) pattern += u'\\';
        pattern += unit;
    }
    return pattern;
}

// Nothing that belongs to a word stands on either side, whatever the pattern itself begins or ends with.
std::u16string wholeWord(std::u16string_view pattern) {
    return u"(?<!\\w)(?:" + std::u16string(pattern) + u")(?!\\w)";
}

// Without a text to search, only the pattern can be wrong.
std::optional<QString> complaint(const SearchQuery& query) {
    if (query.text.empty() || MatchFinder::create(TextSnapshot(), query)) return std::nullopt;
    return QStringLiteral("Not a regular expression");
}

bool isDigit(QChar unit) {
    return unit >= u'0' && unit <= u'9';
}

qsizetype endOfDigits(const QString& text, qsizetype at) {
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

// The engine takes numbers of groups up to 64 bits and stops at larger ones. Those behind an escaped dollar
// are refused with them: nobody means one.
bool hasEndlessGroupNumber(const QString& replacement) {
    for (qsizetype at = replacement.indexOf(u'$'); at >= 0; at = replacement.indexOf(u'$', at + 1)) {
        const qsizetype end = endOfDigits(replacement, at + 1);
        bool fits = true;
        if (end > at + 1) replacement.mid(at + 1, end - at - 1).toLongLong(&fits);
        if (!fits) return true;
    }
    return false;
}

} // namespace

std::expected<SearchQuery, QString> searchQuery(const FindOptions& options) {
    SearchQuery query{options.text.toStdU16String(), options.isRegularExpression, options.isCaseSensitive};
    if (auto wrong = complaint(query)) return std::unexpected(std::move(*wrong));
    if (!options.isWholeWord || query.text.empty()) return query;
    query.text = wholeWord(options.isRegularExpression ? query.text : quoted(query.text));
    query.isRegularExpression = true;
    // A pattern may be right by itself and not between parentheses, as one that ends with a comment.
    if (auto wrong = complaint(query)) return std::unexpected(std::move(*wrong));
    return query;
}

std::expected<ParsedReplacementString, QString> replacementOf(const FindOptions& options,
                                                              const QString& replacement) {
    const std::u16string text = replacement.toStdU16String();
    if (!options.isRegularExpression) return ParsedReplacementString::literal(text);
    if (hasEndlessGroupNumber(replacement))
        return std::unexpected(QStringLiteral("There is no group with so large a number"));
    return replacementFor({.text = {}, .isRegularExpression = true, .isCaseSensitive = false}, text);
}

} // namespace tessarine::editor
