#include "Tessarine/syntax/highlighting/HighlightCaptures.h"

#include <algorithm>
#include <tuple>

namespace tessarine {

namespace {

// Among equals the one that stands first in memory does.
bool takesEffectBefore(const TreeSitterCapture* a, const TreeSitterCapture* b) {
    return std::tuple(a->byteRange().location, b->byteRange().length, a->nameComponentCount(), a) <
           std::tuple(b->byteRange().location, a->byteRange().length, b->nameComponentCount(), b);
}

} // namespace

std::vector<HighlightCapture> highlightCaptures(TreeSitterLanguageLayers& layers, const ByteRange& range,
                                                const TextSnapshot& text, const ParseLimit& limit) {
    if (range.length == 0) return {};
    const auto captures = layers.captures(range, text, limit);
    std::vector<const TreeSitterCapture*> order;
    order.reserve(captures.size());
    for (const TreeSitterCapture& capture : captures)
        order.push_back(&capture);
    std::ranges::sort(order, takesEffectBefore);
    std::vector<HighlightCapture> sorted;
    sorted.reserve(captures.size());
    for (const TreeSitterCapture* capture : order)
        sorted.push_back({.byteRange = capture->byteRange(), .name = std::string(capture->name())});
    return sorted;
}

} // namespace tessarine
