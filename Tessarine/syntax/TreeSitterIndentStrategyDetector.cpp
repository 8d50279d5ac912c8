#include "Tessarine/syntax/TreeSitterIndentStrategyDetector.h"

#include <algorithm>
#include <limits>

namespace tessarine {

namespace {

constexpr std::int64_t enoughLines = 20;
constexpr std::int64_t mostLines = 100;

} // namespace

DetectedIndentStrategy TreeSitterIndentStrategyDetector::detect() {
    const std::int64_t lineCount = m_lineManager.lineCount();
    DocumentLineNode* line = &m_lineManager.lineAtRow(0);
    for (std::int64_t row = 0; row < lineCount; ++row) {
        if (row > 0) line = &line->nextNode();
        ++m_counts.visited;
        if (isComment(row) || line->data().length() == 0) continue;
        count(*line);
        if (!hasSeenEnough() || m_counts.tabLines + m_counts.spaceLines == 0) continue;
        if (m_counts.spaceLines < m_counts.tabLines) return DetectedIndentStrategy::tab();
        return DetectedIndentStrategy::space(m_counts.smallestSpaces);
    }
    return DetectedIndentStrategy::unknown();
}

bool TreeSitterIndentStrategyDetector::isComment(std::int64_t row) const {
    const TreeSitterTextPoint start(LinePosition{.row = row, .column = 0});
    const auto node = m_tree.rootNode().descendant(start, start);
    return node && node->type() == "comment";
}

void TreeSitterIndentStrategyDetector::count(const DocumentLineNode& line) {
    ++m_counts.countedLines;
    const std::int64_t location = line.location();
    const char16_t first = m_stringView.characterAt(location);
    if (first == u'\t') ++m_counts.tabLines;
    if (first == u' ') countSpaces(location, line.data().totalLength());
}

// No further than what would make a smaller indent. A single space is none.
void TreeSitterIndentStrategyDetector::countSpaces(std::int64_t location, std::int64_t totalLength) {
    const std::int64_t limit =
        m_counts.spaceLines > 0 ? std::min(totalLength, m_counts.smallestSpaces) : totalLength;
    std::int64_t spaces = 0;
    while (spaces < limit && m_stringView.characterAt(location + spaces) == u' ')
        ++spaces;
    if (spaces < 2) return;
    ++m_counts.spaceLines;
    m_counts.smallestSpaces = spaces;
}

bool TreeSitterIndentStrategyDetector::hasSeenEnough() const {
    const std::int64_t lineCount = m_lineManager.lineCount();
    const std::int64_t visitedLimit = std::min(lineCount, mostLines);
    const std::int64_t countedLimit = std::min(lineCount, enoughLines);
    return m_counts.visited >= visitedLimit || m_counts.countedLines >= countedLimit;
}

} // namespace tessarine
