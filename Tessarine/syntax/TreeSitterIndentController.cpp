#include "Tessarine/syntax/TreeSitterIndentController.h"

#include "Tessarine/document/IndentLevelMeasurer.h"
#include "Tessarine/syntax/TreeSitterNodePath.h"
#include "Tessarine/syntax/TreeSitterTreeCursor.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

namespace {

bool matches(const TreeSitterNode& node, const std::vector<std::string>& types) {
    const auto type = node.type();
    return type && std::ranges::find(types, *type) != types.end();
}

std::int64_t startRow(const TreeSitterNode& node) {
    return node.startPoint().row();
}

// Both ends count as inside.
bool contains(const TreeSitterNode& node, TreeSitterTextPoint point) {
    return !(point < node.startPoint()) && !(node.endPoint() < point);
}

std::optional<TreeSitterNode> lastChildContaining(const TreeSitterNode& node, TreeSitterTextPoint point) {
    std::optional<TreeSitterNode> last;
    TreeSitterTreeCursor cursor(node);
    for (bool isThere = cursor.goToFirstChild(); isThere; isThere = cursor.goToNextSibling()) {
        const TreeSitterNode child = cursor.currentNode();
        if (point < child.startPoint()) break;
        if (contains(child, point)) last = child;
    }
    return last;
}

// Among children that meet at the point the last one.
std::optional<TreeSitterNode> deepestChildContaining(TreeSitterNode node, const LinePosition& position) {
    const TreeSitterTextPoint point(position);
    if (!contains(node, point)) return std::nullopt;
    while (const auto child = lastChildContaining(node, point))
        node = *child;
    return node;
}

} // namespace

InsertLineBreakIndentStrategy TreeSitterIndentController::strategyForInsertingLineBreak(
    const std::optional<TreeSitterNode>& startNode, const std::optional<TreeSitterNode>& endNode,
    const LinePosition& startPosition, const LinePosition& endPosition) const {
    const bool isOpened = startNode && isBehindOpener(*startNode, startPosition);
    const bool isClosed = endNode && isBeforeCloser(*endNode, endPosition);
    if (isOpened) return {indentLevelOfLine(startPosition.row) + 1, isClosed};
    return {indentLevelOfLine(isClosed ? endPosition.row : startPosition.row), false};
}

std::int64_t TreeSitterIndentController::indentLevelOfLine(std::int64_t row) const {
    const DocumentLineNode& line = m_lineManager.lineAtRow(std::min(row, m_lineManager.lineCount() - 1));
    return IndentLevelMeasurer(m_stringView)
        .indentLevel(line.location(), line.data().totalLength(), m_tabLength);
}

bool TreeSitterIndentController::isBehindOpener(TreeSitterNode node, const LinePosition& position) const {
    if (m_indentationScopes.whitespaceDenotesBlocks) {
        const auto deepest = deepestChildContaining(node, position);
        if (!deepest) return false;
        node = *deepest;
    }
    const TreeSitterNodePath path(node);
    for (std::size_t i = 0; i < path.size() && startRow(path[i]) == position.row; ++i) {
        const bool isOpener = matches(path[i], m_indentationScopes.indent) ||
                              matches(path[i], m_indentationScopes.inheritIndent);
        if (isOpener && path[i].startPoint().column() / 2 < position.column) return true;
    }
    return false;
}

// The column of a closer counts in bytes, so one from half of the position's column on closes.
bool TreeSitterIndentController::isBeforeCloser(const TreeSitterNode& node,
                                                const LinePosition& position) const {
    const TreeSitterNodePath path(node);
    for (std::size_t i = 0; i < path.size() && startRow(path[i]) == position.row; ++i)
        if (matches(path[i], m_indentationScopes.outdent) && path[i].startPoint().column() >= position.column)
            return true;
    return false;
}

} // namespace tessarine
