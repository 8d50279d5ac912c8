#pragma once

#include "Tessarine/document/AttributedString.h"
#include "Tessarine/document/ByteRange.h"
#include "Tessarine/syntax/highlighting/HighlightCaptures.h"
#include "Tessarine/theme/Theme.h"

#include <optional>
#include <span>
#include <vector>

namespace tessarine {

// What a theme wants of a stretch of a line; the range counts from the line's start.
struct TreeSitterSyntaxHighlightToken {
    TextRange range;
    std::optional<Color> textColor = std::nullopt;
    std::optional<Shadow> shadow = std::nullopt;
    std::optional<Font> font = std::nullopt;
    FontTraits fontTraits = {};

    // Traits alone are nothing: without one of the others a token has no effect.
    bool isEmpty() const { return range.length == 0 || (!textColor && !shadow && !font); }

    friend bool operator==(const TreeSitterSyntaxHighlightToken&,
                           const TreeSitterSyntaxHighlightToken&) = default;
};

// Those of the captures in a line that a theme has something to say about, in their order.
std::vector<TreeSitterSyntaxHighlightToken> highlightTokens(std::span<const HighlightCapture> captures,
                                                            const ByteRange& lineRange, const Theme& theme);

// Later tokens write over earlier ones, but what traits the earlier ones gave the text where a token begins
// the token's font gets, too. `defaultFont` is for tokens without one.
void applyTokens(std::span<const TreeSitterSyntaxHighlightToken> tokens, const Font& defaultFont,
                 AttributedString& attributedString);

} // namespace tessarine
