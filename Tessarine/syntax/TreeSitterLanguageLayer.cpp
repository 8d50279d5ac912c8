#include "Tessarine/syntax/TreeSitterLanguageLayer.h"

#include <algorithm>

namespace tessarine {

TreeSitterLanguageLayer::TreeSitterLanguageLayer(TreeSitterInternalLanguage::Reference language,
                                                 std::optional<TreeSitterTextRange> textRange,
                                                 TreeSitterTree::Reference tree,
                                                 TreeSitterTree::Reference identityTree, Children children)
    : m_language(std::move(language))
    , m_textRange(textRange)
    , m_tree(std::move(tree))
    , m_identityTree(std::move(identityTree))
    , m_children(std::move(children.layers))
    , m_childrenAreIndependent(children.areIndependent) {
    const auto start = [](const Child& child) { return child.layer->textRange()->startByte(); };
    if (!std::ranges::is_sorted(m_children, {}, start)) std::ranges::sort(m_children, {}, start);
    m_greatestEnds.reserve(m_children.size());
    ByteCount greatest;
    for (const Child& child : m_children)
        m_greatestEnds.push_back(greatest = std::max(greatest, child.layer->textRange()->endByte()));
}

bool TreeSitterLanguageLayer::isEmpty() const {
    if (!m_tree) return true;
    const TreeSitterNode root = m_tree->rootNode();
    return root.endByte() <= root.startByte();
}

std::size_t TreeSitterLanguageLayer::firstChildEndingAt(ByteCount byte) const {
    return static_cast<std::size_t>(std::ranges::lower_bound(m_greatestEnds, byte) - m_greatestEnds.begin());
}

} // namespace tessarine
