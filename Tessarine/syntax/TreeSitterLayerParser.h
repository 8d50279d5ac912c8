#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/ChildLayerMatcher.h"
#include "Tessarine/syntax/InjectionsSearch.h"
#include "Tessarine/syntax/ParseLimit.h"
#include "Tessarine/syntax/TreeSitterInjectedLanguage.h"
#include "Tessarine/syntax/TreeSitterLanguageLayer.h"
#include "Tessarine/syntax/TreeSitterLanguageProvider.h"
#include "Tessarine/syntax/TreeSitterParser.h"

#include <optional>
#include <span>
#include <vector>

namespace tessarine {

// Makes layers: of a whole text, or of layers and the edits since. Strictly top-down: a layer is parsed, the
// stretches in other languages are found in its tree, then each of those is parsed. One parser serves all.
// After edits those stretches are looked for around what changed; the others are where they were.
//
// For one run on one thread; borrows everything. A run whose limit is reached gives null.
class TreeSitterLayerParser {
public:
    // `text` is what the parser's delegate reads out.
    TreeSitterLayerParser(TreeSitterParser& parser, const TextSnapshot& text,
                          const TreeSitterLanguageProvider* languageProvider, const ParseLimit& limit)
        : m_parser(parser)
        , m_text(text)
        , m_languageProvider(languageProvider)
        , m_limit(limit) {}

    // From nothing.
    TreeSitterLanguageLayer::Reference parse(const TreeSitterInternalLanguage::Reference& language);

    // A root layer brought up to the text by the edits made since.
    TreeSitterLanguageLayer::Reference apply(const TreeSitterLanguageLayer::Reference& root,
                                             std::span<const TreeSitterInputEdit> edits);

    // Where apply() gave the text another structure: changed ranges of all layers, and the whole of layers
    // that came or went.
    std::vector<TreeSitterTextRange> takeChangedRanges() { return std::move(m_changedRanges); }

private:
    using Layer = TreeSitterLanguageLayer;

    struct Place {
        std::optional<TreeSitterTextRange> range; // none for the root
        int depth;
    };

    // A layer that is being brought up to the text.
    struct Reparse {
        const Layer& layer;
        const Place& place;
        TreeSitterTree::Reference oldTree; // where the text is now
        TreeSitterTree::Reference tree;
        std::vector<TreeSitterTextRange> changedRanges;
    };

    // A child that nothing came near, and where it is now.
    struct Kept {
        Layer::Reference layer;
        RangeAfterEdits after;
    };

    // A stretch and the child that it was before, if any.
    struct Stretch {
        TreeSitterInjectedLanguage injection;
        Layer::Reference earlier;
    };

    void prepareParser(const TreeSitterInternalLanguage& language, const Place& place);
    Layer::Reference parseLayer(const TreeSitterInternalLanguage::Reference& language, const Place& place);
    Layer::Reference applyToLayer(const Layer::Reference& layer, const Place& place);
    Layer::Reference applyEffect(const Layer::Reference& layer, const Place& place, EditEffect effect);
    Layer::Reference reparseLayer(const Layer& layer, const Place& place);
    std::optional<InjectionsSearch> injectionsSearch(const TreeSitterInternalLanguage& language,
                                                     const TreeSitterTree::Reference& tree, int depth);
    Layer::Reference childLanguageLayer(const Stretch& stretch, int depth);

    Layer::Children updateChildLayers(const Reparse& reparse);
    Layer::Children updateAllChildLayers(const Reparse& reparse, const InjectionsSearch& search);
    std::optional<Layer::Children> updateChildLayersNear(ByteInterval interval, const Reparse& reparse,
                                                         const InjectionsSearch& search);
    Layer::Children childLayers(FoundInjections found, ChildLayerMatcher& matcher, int depth);
    bool areKept(std::span<const TreeSitterInjectedLanguage> injections, std::span<const Kept> kept) const;
    std::optional<ByteInterval> changedInterval(const Reparse& reparse) const;
    std::vector<Stretch> stretches(std::vector<TreeSitterInjectedLanguage> injections,
                                   ChildLayerMatcher& matcher) const;
    TreeSitterInternalLanguage::Reference languageNamed(const std::string& name) const;
    Layer::Reference moved(const Layer& layer, const Place& place);
    std::shared_ptr<const TreeSitterTree> edited(const TreeSitterTree::Reference& tree) const;
    bool isStopped();

    TreeSitterParser& m_parser;
    const TextSnapshot& m_text;
    const TreeSitterLanguageProvider* m_languageProvider;
    const ParseLimit& m_limit;
    std::span<const TreeSitterInputEdit> m_edits;
    std::vector<TreeSitterTextRange> m_touchedRanges; // by the edits
    std::vector<TreeSitterTextRange> m_changedRanges;
    bool m_isStopped = false;
};

} // namespace tessarine
