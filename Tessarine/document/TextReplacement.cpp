#include "Tessarine/document/TextReplacement.h"

#include <algorithm>

namespace tessarine {

std::optional<TextRange> TextReplacement::moved(const TextRange& other) const {
    if (other.limit() <= range.location) return other;
    if (other.location < range.limit()) return std::nullopt;
    return TextRange{other.location + newLength - range.length, other.length};
}

std::int64_t TextReplacement::movedLocation(std::int64_t location) const {
    if (location >= range.limit()) return location + newLength - range.length;
    return std::min(location, newLimit());
}

TextRange TextReplacement::before(const TextRange& after) const {
    const auto shift = newLength - range.length;
    const auto map = [&](std::int64_t location, std::int64_t insideOfNewText) {
        if (location <= range.location) return location;
        return location >= newLimit() ? location - shift : insideOfNewText;
    };
    const std::int64_t start = map(after.location, range.location);
    return {start, map(after.limit(), range.limit()) - start};
}

bool TextReplacement::append(const TextReplacement& next) {
    if (next.range.limit() < range.location || next.range.location > newLimit()) return false;
    const auto inFront = std::max<std::int64_t>(0, range.location - next.range.location);
    const auto behind = std::max<std::int64_t>(0, next.range.limit() - newLimit());
    range = {range.location - inFront, range.length + inFront + behind};
    newLength += inFront + behind + next.newLength - next.range.length;
    return true;
}

} // namespace tessarine
