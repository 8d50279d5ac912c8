#include "Tessarine/document/IndentLevelMeasurer.h"

#include "Tessarine/document/StringView.h"

#include <algorithm>

namespace tessarine {

std::int64_t IndentLevelMeasurer::indentLevel(std::int64_t location, std::int64_t totalLength,
                                              std::int64_t tabLength) const {
    const std::int64_t limit = std::min(location + totalLength, m_stringView.length());
    std::int64_t column = 0;
    for (std::int64_t at = location; at < limit; ++at) {
        const char16_t character = m_stringView.characterAt(at);
        if (character == u'\t')
            column += tabLength - column % tabLength;
        else if (character == u' ')
            ++column;
        else
            break;
    }
    return column / tabLength;
}

} // namespace tessarine
