#include "Tessarine/syntax/TreeSitterQueryMatch.h"

#include <algorithm>

namespace tessarine {

const TreeSitterCapture* TreeSitterQueryMatch::capture(std::uint32_t index) const {
    const auto found = std::ranges::find(m_captures, index, &TreeSitterCapture::index);
    return found == m_captures.end() ? nullptr : &*found;
}

std::string TreeSitterQueryMatch::debugDescription() const {
    std::string text = "[TreeSitterQueryMatch captures=[";
    for (const TreeSitterCapture& capture : m_captures)
        text += (&capture == m_captures.data() ? "" : ", ") + capture.debugDescription();
    return text + "]]";
}

} // namespace tessarine
