#include "Tessarine/layout/LineFragmentTree.h"

#include "Tessarine/layout/LineFragmentCharacterLocationQuery.h"
#include "Tessarine/layout/LineFragmentFrameQuery.h"

namespace tessarine {

void LineFragmentTree::reset() {
    m_tree = Tree::create(0, 0, {});
}

void LineFragmentTree::enter(std::span<const LineFragmentReference> lineFragments) {
    for (const LineFragmentReference& fragment : lineFragments) {
        const std::int64_t length = fragment->range.length;
        const bool isNew = fragment->index >= m_tree->root().nodeTotalCount();
        LineFragmentNode& node = isNew ? *m_tree->insertNodeAfter(length, {}, m_tree->lastNode())
                                       : m_tree->nodeAtIndex(fragment->index);
        const double heightBefore =
            fragment->index == 0 ? 0 : node.previousNode().data().totalLineFragmentHeight;
        node.data() = {.lineFragment = fragment,
                       .totalLineFragmentHeight = heightBefore + fragment->scaledSize.height};
        node.setValue(length);
        m_tree->updateAggregates(node);
    }
}

void LineFragmentTree::keepFirst(std::int64_t count) {
    if (count == 0) return reset();
    while (m_tree->root().nodeTotalCount() > count)
        m_tree->removeNode(m_tree->lastNode());
}

LineFragments LineFragmentTree::lineFragmentsInFrame(double minY, double maxY) const {
    if (maxY < minY) return {};
    LineFragmentFrameQuery query({.lowerBound = minY, .upperBound = maxY});
    return lineFragmentsFoundBy(query);
}

LineFragments LineFragmentTree::lineFragmentsInRange(const TextRange& range) const {
    LineFragmentCharacterLocationQuery query(range);
    return lineFragmentsFoundBy(query);
}

LineFragments LineFragmentTree::lineFragmentsFoundBy(Tree::SearchQuery& query) const {
    LineFragments found;
    for (const Tree::SearchMatch& match : m_tree->searchNodes(query))
        if (match.node->data().lineFragment) found.push_back(match.node->data().lineFragment);
    return found;
}

std::optional<std::string> LineFragmentTree::check() const {
    if (auto fault = m_tree->check()) return fault;
    const std::int64_t count = m_tree->root().nodeTotalCount();
    if (count == 1 && !m_tree->root().data().lineFragment) return std::nullopt;
    double height = 0;
    for (std::int64_t index = 0; index < count; ++index) {
        const LineFragmentNode& node = m_tree->nodeAtIndex(index);
        const LineFragmentReference& fragment = node.data().lineFragment;
        if (!fragment) return "a node has no row";
        if (fragment->index != index) return "a row stands at another place than its own";
        if (fragment->range != TextRange{.location = node.location(), .length = node.value()})
            return "a node does not know the range of its row";
        if (fragment->yPosition != height) return "a row is not where those before it end";
        height += fragment->scaledSize.height;
        if (node.data().totalLineFragmentHeight != height) return "a total height is stale";
    }
    return std::nullopt;
}

} // namespace tessarine
