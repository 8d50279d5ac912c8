#include "Tessarine/document/ComposedRange.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/document/CharacterBoundaries.h"

namespace tessarine {

TextRange composedRange(const TextSnapshot& text, std::int64_t location, std::int64_t length) {
    if (location < 0 || length < 0 || location > text.length() - length)
        fatalError("A range lies outside of the text.");
    CharacterBoundaries boundaries(text);
    const std::int64_t start = boundaries.atOrBefore(location);
    std::int64_t limit = location + length;
    if (limit < text.length()) {
        const std::int64_t lastUnit = limit > start ? limit - 1 : limit;
        limit = boundaries.after(lastUnit);
    }
    return {start, limit - start};
}

} // namespace tessarine
