#pragma once

#include "Tessarine/syntax/EditedRange.h"
#include "Tessarine/syntax/TreeSitterInternalLanguage.h"
#include "Tessarine/syntax/TreeSitterTextRange.h"
#include "Tessarine/syntax/TreeSitterTree.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tessarine {

// The parse of a stretch of the text in one language, with the layers of the stretches in it that are written
// in other languages. The root layer is that of the whole text.
//
// It never changes: a reparse makes another (TreeSitterLayerParser), which shares what stayed the same. So
// any thread may read it. Trees of trees end after mostDepth, whatever queries inject into each other.
class TreeSitterLanguageLayer {
public:
    using Reference = std::shared_ptr<const TreeSitterLanguageLayer>;

    static constexpr int mostDepth = 10;

    // The id is that of the node which the child was found on, in the tree that the child was found in; null
    // if it was found in an earlier one.
    struct Child {
        const void* id;
        Reference layer;
    };

    struct Children {
        std::vector<Child> layers;
        bool areIndependent = true; // see FoundInjections
    };

    // A root that has not been parsed.
    explicit TreeSitterLanguageLayer(TreeSitterInternalLanguage::Reference language)
        : m_language(std::move(language)) {}

    // No range makes a root. `identityTree` is the one in which the children were found: as long as it lives
    // no other node can get the id of one of its nodes.
    TreeSitterLanguageLayer(TreeSitterInternalLanguage::Reference language,
                            std::optional<TreeSitterTextRange> textRange, TreeSitterTree::Reference tree,
                            TreeSitterTree::Reference identityTree, Children children);

    const TreeSitterInternalLanguage::Reference& language() const { return m_language; }

    // What a child was parsed from.
    const std::optional<TreeSitterTextRange>& textRange() const { return m_textRange; }

    // Null if it was not parsed, the text is empty or the parse failed.
    const TreeSitterTree::Reference& tree() const { return m_tree; }

    const TreeSitterTree::Reference& identityTree() const { return m_identityTree; }

    // In the order of their starts.
    const std::vector<Child>& childLanguageLayers() const { return m_children; }

    bool childrenAreIndependent() const { return m_childrenAreIndependent; }

    // Whether there is no tree, or one without content.
    bool isEmpty() const;

    // Calls `visit` with every child whose range has a byte of the interval or ends beside it, in the order
    // of their starts.
    template <class Visit>
    void visitChildren(ByteInterval interval, Visit visit) const {
        for (std::size_t i = firstChildEndingAt(interval.first);
             i < m_children.size() && m_children[i].layer->textRange()->startByte() <= interval.last; ++i)
            if (m_children[i].layer->textRange()->endByte() >= interval.first) visit(*m_children[i].layer);
    }

private:
    std::size_t firstChildEndingAt(ByteCount byte) const;

    TreeSitterInternalLanguage::Reference m_language;
    std::optional<TreeSitterTextRange> m_textRange;
    TreeSitterTree::Reference m_tree;
    TreeSitterTree::Reference m_identityTree;
    std::vector<Child> m_children;
    bool m_childrenAreIndependent = true;
    std::vector<ByteCount> m_greatestEnds; // of the children up to and with each: ascending, unlike the ends
};

} // namespace tessarine
