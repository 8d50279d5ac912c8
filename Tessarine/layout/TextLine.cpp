#include "Tessarine/layout/TextLine.h"

#include <algorithm>

namespace tessarine {

std::vector<TextLine::Span> TextLine::spansOf(const TextRange& range) const {
    const auto [minX, maxX] =
        std::minmax({offsetForStringIndex(range.location), offsetForStringIndex(range.limit())});
    return {{.minX = minX, .maxX = maxX}};
}

} // namespace tessarine
