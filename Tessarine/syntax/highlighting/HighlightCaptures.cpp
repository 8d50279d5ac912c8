#include "Tessarine/syntax/highlighting/HighlightCaptures.h"

#include <algorithm>
#include <tuple>

namespace tessarine {

namespace {

bool takesEffectBefore(const TreeSitterCapture& a, const TreeSitterCapture& b) {
    return std::tuple(a.byteRange().location, b.byteRange().length, a.nameComponentCount()) <
           std::tuple(b.byteRange().location, a.byteRange().length, b.nameComponentCount());
}

} // namespace

std::vector<HighlightCapture> highlightCaptures(TreeSitterLanguageLayers& layers, const ByteRange& range,
                                                const TextSnapshot& text, const ParseLimit& limit) {
    if (range.length == 0) return {};
    auto captures = layers.captures(range, text, limit);
    std::ranges::stable_sort(captures, takesEffectBefore);
    std::vector<HighlightCapture> sorted;
    sorted.reserve(captures.size());
    for (const TreeSitterCapture& capture : captures)
        sorted.push_back({.byteRange = capture.byteRange(), .name = std::string(capture.name())});
    return sorted;
}

} // namespace tessarine
