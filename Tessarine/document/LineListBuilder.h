#pragma once

#include "Tessarine/document/LineBreakScanner.h"
#include "Tessarine/document/LineManager.h"

#include <span>
#include <vector>

namespace tessarine {

// Cuts a text into lines, in one scan, for the balanced build of the tree.
class LineListBuilder {
public:
    // The nodes come from `tree`, all with the given height.
    LineListBuilder(DocumentLineTree& tree, double lineHeight)
        : m_tree(tree)
        , m_fresh(lineHeight) {
        m_fresh.setBytesAreCounted(true);
    }

    // The next stretch of the text.
    template <class Unit>
    void append(std::span<const Unit> piece) {
        m_scanner.scan(piece, [this](LineBreak lineBreak) { endLine(lineBreak); });
    }

    // The text is complete: what stands behind the last break is the last line.
    void finish() {
        m_scanner.finish([this](LineBreak lineBreak) { endLine(lineBreak); });
        endLine({m_scanner.position(), 0});
    }

    // In document order; at least one after finish().
    std::span<DocumentLineNodeReference> lines() { return m_lines; }

    // The first of the longest lines; absent if all are empty.
    const DocumentLineNodeReference& longestLine() const { return m_longestLine; }

private:
    void endLine(LineBreak lineBreak) {
        const std::int64_t length = lineBreak.end() - m_lineStart;
        m_fresh.setDelimiterLength(static_cast<int>(lineBreak.length));
        m_lines.push_back(m_tree.makeNode(length, m_fresh));
        m_lineStart = lineBreak.end();
        if (length <= m_longestLength) return;
        m_longestLength = length;
        m_longestLine = m_lines.back();
    }

    DocumentLineTree& m_tree;
    DocumentLineNodeData m_fresh;
    LineBreakScanner m_scanner;
    std::vector<DocumentLineNodeReference> m_lines;
    std::int64_t m_lineStart = 0;
    std::int64_t m_longestLength = 0;
    DocumentLineNodeReference m_longestLine;
};

} // namespace tessarine
