#include "Tessarine/document/LineEndingDetector.h"

#include "Tessarine/document/LineManager.h"

#include <algorithm>
#include <array>

namespace tessarine {

std::optional<LineEnding> LineEndingDetector::detect() const {
    const std::int64_t limit = std::min<std::int64_t>(m_lineManager.lineCount(), 20);
    std::array<int, allLineEndings.size()> tally{};
    std::int64_t tallied = 0;
    auto lines = m_lineManager.documentLineTree().iterator();
    std::int64_t lineEnd = 0;
    for (const DocumentLineNode* line = lines.next(); line && tallied < limit; line = lines.next()) {
        lineEnd += line->value();
        const int length = line->data().delimiterLength();
        const auto lineEnding = lineEndingFromSymbol(m_stringView.substring(lineEnd - length, length));
        if (!lineEnding) continue;
        ++tally[static_cast<std::size_t>(*lineEnding)];
        ++tallied;
    }
    if (tallied == 0) return std::nullopt;
    return allLineEndings[static_cast<std::size_t>(std::ranges::max_element(tally) - tally.begin())];
}

} // namespace tessarine
