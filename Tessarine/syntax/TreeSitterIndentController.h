#pragma once

#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/LinePosition.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/InsertLineBreakIndentStrategy.h"
#include "Tessarine/syntax/TreeSitterIndentationScopes.h"
#include "Tessarine/syntax/TreeSitterNode.h"

#include <cstdint>
#include <optional>

namespace tessarine {

// Decides by the types of the nodes around a selection how far a line break there indents. Made and dropped
// within one call; borrows everything.
//
// Only nodes that begin in the row of the position decide, and one alone does: however many openers and
// closers stand beside it, the new line is one level deeper than the opener's, or as deep as the closer's.
// The parser ends a row with LF alone, so in a text with other line breaks the rows do not agree and the new
// line is as deep as the one it leaves.
class TreeSitterIndentController {
public:
    TreeSitterIndentController(const TreeSitterIndentationScopes& indentationScopes,
                               const StringView& stringView, const LineManager& lineManager,
                               std::int64_t tabLength)
        : m_indentationScopes(indentationScopes)
        , m_stringView(stringView)
        , m_lineManager(lineManager)
        , m_tabLength(tabLength) {}

    // The nodes are the smallest ones at both ends of the selection, if there are any.
    InsertLineBreakIndentStrategy
    strategyForInsertingLineBreak(const std::optional<TreeSitterNode>& startNode,
                                  const std::optional<TreeSitterNode>& endNode,
                                  const LinePosition& startPosition, const LinePosition& endPosition) const;

    // The whole indents of the line, of the last line for a row below it.
    std::int64_t indentLevelOfLine(std::int64_t row) const;

private:
    bool isBehindOpener(TreeSitterNode node, const LinePosition& position) const;
    bool isBeforeCloser(const TreeSitterNode& node, const LinePosition& position) const;

    const TreeSitterIndentationScopes& m_indentationScopes;
    const StringView& m_stringView;
    const LineManager& m_lineManager;
    std::int64_t m_tabLength;
};

} // namespace tessarine
