#include "Tessarine/document/search/TextPreview.h"

#include <algorithm>

namespace tessarine {

std::optional<TextPreview> textPreview(const LineManager& lines, TextRange needle, std::int64_t peekLength) {
    const auto linesOfNeedle = lines.linesInRange(needle.location, needle.length);
    if (linesOfNeedle.empty()) return std::nullopt;
    const DocumentLineNode& last = *linesOfNeedle.back();
    const std::int64_t maximumLocation = last.location() + last.data().length();
    const std::int64_t start = std::max(needle.location - peekLength, linesOfNeedle.front()->location());
    const std::int64_t limit = std::min(maximumLocation, 2 * needle.location + peekLength);
    const std::int64_t length = limit - start;
    return TextPreview{needle, {start, length}, {needle.location - start, std::min(length, needle.length)}};
}

} // namespace tessarine
