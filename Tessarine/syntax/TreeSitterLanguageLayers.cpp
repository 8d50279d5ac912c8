#include "Tessarine/syntax/TreeSitterLanguageLayers.h"

#include "Tessarine/syntax/EditedRange.h"
#include "Tessarine/syntax/TreeSitterQueryCursor.h"
#include "Tessarine/syntax/TreeSitterTextPredicatesEvaluator.h"

namespace tessarine {

namespace {

// Both ends count as inside.
bool contains(TreeSitterTextPoint start, TreeSitterTextPoint end, TreeSitterTextPoint point) {
    return !(point < start) && !(end < point);
}

} // namespace

const TreeSitterTree* TreeSitterLanguageLayers::treeOf(const TreeSitterLanguageLayer& layer) {
    if (!layer.tree() || m_edits.empty()) return layer.tree().get();
    EditedTree& edited = m_editedTrees[&layer];
    if (!edited.tree) edited.tree = layer.tree()->copy();
    for (; edited.editCount < m_edits.size(); ++edited.editCount)
        edited.tree->apply(m_edits[edited.editCount]);
    return edited.tree.get();
}

std::vector<TreeSitterCapture> TreeSitterLanguageLayers::captures(const ByteRange& range,
                                                                  const TextSnapshot& text,
                                                                  const ParseLimit& limit) {
    std::vector<TreeSitterCapture> captures;
    appendCaptures(*m_root, range, text, limit, captures);
    return captures;
}

void TreeSitterLanguageLayers::appendCaptures(const TreeSitterLanguageLayer& layer, const ByteRange& range,
                                              const TextSnapshot& text, const ParseLimit& limit,
                                              std::vector<TreeSitterCapture>& captures) {
    const TreeSitterTree* tree = treeOf(layer);
    if (!tree || !layer.language()->highlightsQuery) return;
    TreeSitterQueryCursor cursor(*layer.language()->highlightsQuery, tree->rootNode(), limit);
    cursor.setQueryRange(range);
    cursor.execute();
    for (TreeSitterQueryMatch match; cursor.nextMatch(match);)
        appendValidCaptures(match, text, captures);
    const ByteInterval parsed = beforeEdits({range.location, range.location + range.length}, m_edits);
    layer.visitChildren(parsed, [&](const TreeSitterLanguageLayer& child) {
        appendCaptures(child, range, text, limit, captures);
    });
}

TreeSitterLayerAndNode TreeSitterLanguageLayers::layerAndNode(const LinePosition& position) {
    return layerAndNode(*m_root, TreeSitterTextPoint(position));
}

TreeSitterLayerAndNode TreeSitterLanguageLayers::layerAndNode(const TreeSitterLanguageLayer& layer,
                                                              TreeSitterTextPoint point) {
    const TreeSitterTree* tree = treeOf(layer);
    if (!tree) return {};
    TreeSitterLayerAndNode candidate{&layer, tree->rootNode().descendant(point, point)};
    for (const auto& [id, child] : layer.childLanguageLayers()) {
        const auto range = rangeAfterEdits(*child->textRange(), m_edits).range;
        if (!contains(range.startPoint(), range.endPoint(), point)) continue;
        const TreeSitterTree* childTree = treeOf(*child);
        if (!childTree) continue;
        const TreeSitterNode root = childTree->rootNode();
        if (!contains(root.startPoint(), root.endPoint(), point)) continue;
        const TreeSitterLayerAndNode found = layerAndNode(*child, point);
        if (!found.node) continue;
        if (!candidate.node || found.node->byteRange().length < candidate.node->byteRange().length)
            candidate = found;
    }
    return candidate.node ? candidate : TreeSitterLayerAndNode{};
}

} // namespace tessarine
