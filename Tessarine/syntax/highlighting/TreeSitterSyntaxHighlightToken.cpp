#include "Tessarine/syntax/highlighting/TreeSitterSyntaxHighlightToken.h"

#include <algorithm>

namespace tessarine {

namespace {

// In code units from the line's start; empty if the capture only touches the line.
TextRange rangeInLine(const ByteRange& capture, const ByteRange& line) {
    const ByteCount start = std::max(capture.location, line.location);
    const ByteCount end = std::min(capture.location + capture.length, line.location + line.length);
    if (end <= start) return {};
    return {.location = (start - line.location).value() / 2, .length = (end - start).value() / 2};
}

FontTraits traitsOf(const TextAttributes& attributes) {
    return (attributes.isBold ? FontTraits::bold : FontTraits{}) |
           (attributes.isItalic ? FontTraits::italic : FontTraits{});
}

void applyToken(const TreeSitterSyntaxHighlightToken& token, const Font& defaultFont,
                AttributedString& attributedString) {
    const TextAttributes& current = attributedString.runAt(token.range.location).attributes;
    TextAttributes added{.foregroundColor = token.textColor,
                         .shadow = token.shadow,
                         .isBold = token.fontTraits.contains(FontTraits::bold),
                         .isItalic = token.fontTraits.contains(FontTraits::italic)};
    Font font = token.font.value_or(defaultFont);
    const FontTraits traits = traitsOf(current) | traitsOf(added);
    if (!traits.isEmpty()) font = font.withTraits(traits);
    if (current.font != font) added.font = std::move(font);
    attributedString.addAttributes(added, token.range);
}

} // namespace

std::vector<TreeSitterSyntaxHighlightToken> highlightTokens(std::span<const HighlightCapture> captures,
                                                            const ByteRange& lineRange, const Theme& theme) {
    std::vector<TreeSitterSyntaxHighlightToken> tokens;
    for (const HighlightCapture& capture : captures) {
        const TextRange range = rangeInLine(capture.byteRange, lineRange);
        if (range.length == 0) continue;
        TreeSitterSyntaxHighlightToken token{.range = range,
                                             .textColor = theme.textColor(capture.name),
                                             .shadow = theme.shadow(capture.name),
                                             .font = theme.font(capture.name),
                                             .fontTraits = theme.fontTraits(capture.name)};
        if (!token.isEmpty()) tokens.push_back(std::move(token));
    }
    return tokens;
}

void applyTokens(std::span<const TreeSitterSyntaxHighlightToken> tokens, const Font& defaultFont,
                 AttributedString& attributedString) {
    for (const TreeSitterSyntaxHighlightToken& token : tokens)
        applyToken(token, defaultFont, attributedString);
}

} // namespace tessarine
