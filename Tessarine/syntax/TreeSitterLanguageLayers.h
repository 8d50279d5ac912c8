#pragma once

#include "Tessarine/document/LinePosition.h"
#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/ParseLimit.h"
#include "Tessarine/syntax/TreeSitterCapture.h"
#include "Tessarine/syntax/TreeSitterLanguageLayer.h"

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tessarine {

// Where a position lies: both absent, or neither. They borrow the layers that they come from.
struct TreeSitterLayerAndNode {
    const TreeSitterLanguageLayer* layer = nullptr;
    std::optional<TreeSitterNode> node;
};

// The layers of a document as they stand now: those of the last parse, and the edits since, which move their
// trees to where the text is. A layer's tree is moved when it is first asked for something.
//
// Captures and nodes are good until the next edit or the object's end. A copy serves another thread; each
// object belongs to one at a time.
class TreeSitterLanguageLayers {
public:
    explicit TreeSitterLanguageLayers(TreeSitterLanguageLayer::Reference root)
        : m_root(std::move(root)) {}

    TreeSitterLanguageLayers(const TreeSitterLanguageLayers& other)
        : m_root(other.m_root)
        , m_edits(other.m_edits) {}

    TreeSitterLanguageLayers(TreeSitterLanguageLayers&&) = default;
    TreeSitterLanguageLayers& operator=(TreeSitterLanguageLayers&&) = default;

    const TreeSitterLanguageLayer::Reference& root() const { return m_root; }

    // Since the root was parsed.
    const std::vector<TreeSitterInputEdit>& edits() const { return m_edits; }

    void apply(const TreeSitterInputEdit& edit) { m_edits.push_back(edit); }

    // Null if the root has none.
    const TreeSitterTree* rootTree() { return treeOf(*m_root); }

    // The captures of the highlights queries that touch a range and stand, a layer's before its children's.
    // The children of a layer without tree or query are not asked. Once the limit is reached there are no
    // more.
    std::vector<TreeSitterCapture> captures(const ByteRange& range, const TextSnapshot& text,
                                            const ParseLimit& limit = {});

    // The deepest layer and the smallest node; between nodes of one length a parent before its children.
    TreeSitterLayerAndNode layerAndNode(const LinePosition& position);

private:
    struct EditedTree {
        std::shared_ptr<TreeSitterTree> tree;
        std::size_t editCount = 0;
    };

    const TreeSitterTree* treeOf(const TreeSitterLanguageLayer& layer);
    void appendCaptures(const TreeSitterLanguageLayer& layer, const ByteRange& range,
                        const TextSnapshot& text, const ParseLimit& limit,
                        std::vector<TreeSitterCapture>& captures);
    TreeSitterLayerAndNode layerAndNode(const TreeSitterLanguageLayer& layer, TreeSitterTextPoint point);

    TreeSitterLanguageLayer::Reference m_root;
    std::vector<TreeSitterInputEdit> m_edits;
    std::unordered_map<const TreeSitterLanguageLayer*, EditedTree> m_editedTrees;
};

} // namespace tessarine
