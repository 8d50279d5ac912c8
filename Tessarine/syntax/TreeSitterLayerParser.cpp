#include "Tessarine/syntax/TreeSitterLayerParser.h"

#include "Tessarine/syntax/EditedRange.h"
#include "Tessarine/syntax/TreeSitterInjectedLanguageMapper.h"
#include "Tessarine/syntax/TreeSitterQueryCursor.h"
#include "Tessarine/syntax/TreeSitterTextPredicatesEvaluator.h"

#include <unordered_set>
#include <utility>

namespace tessarine {

namespace {

using Layer = TreeSitterLanguageLayer;

// Of a stretch up to this size everything is parsed anew rather than what changed: that takes no longer than
// the rest of an edit, and cannot differ from a fresh parse, which after errors and with scanners that look
// far ahead an incremental one may.
constexpr std::int64_t mostBytesParsedAnew = 8'192;

bool isSmall(const std::optional<TreeSitterTextRange>& range) {
    return range && range->endByte() - range->startByte() <= mostBytesParsedAnew;
}

// The parser weighs what lies before a text when it decides how to go on after an error in it.
bool dependsOnPlace(const Layer& layer) {
    return layer.tree() && ts_node_has_error(layer.tree()->rootNode().rawValue());
}

// Two captures on one node make one child, the first.
void dropRepeatedNodes(std::vector<TreeSitterInjectedLanguage>& injections) {
    std::unordered_set<const void*> ids;
    ids.reserve(injections.size());
    std::erase_if(injections, [&](const auto& injection) { return !ids.insert(injection.id).second; });
}

} // namespace

Layer::Reference TreeSitterLayerParser::parse(const TreeSitterInternalLanguage::Reference& language) {
    return parseLayer(language, {.range = {}, .depth = 0});
}

Layer::Reference TreeSitterLayerParser::apply(const Layer::Reference& root,
                                              std::span<const TreeSitterInputEdit> edits) {
    m_edits = edits;
    return applyToLayer(root, {.range = {}, .depth = 0});
}

// The root parses the whole text, a child its stretch.
void TreeSitterLayerParser::prepareParser(const TreeSitterInternalLanguage& language, const Place& place) {
    m_parser.setLanguage(language.languagePointer);
    if (place.range)
        m_parser.setIncludedRanges(std::span(&*place.range, 1));
    else
        m_parser.removeAllIncludedRanges();
}

Layer::Reference TreeSitterLayerParser::parseLayer(const TreeSitterInternalLanguage::Reference& language,
                                                   const Place& place) {
    prepareParser(*language, place);
    const auto tree = m_parser.parse(m_text, nullptr, m_limit);
    std::vector<Layer::Child> children;
    for (const auto& injection : injections(*language, tree, place.depth)) {
        auto child = childLanguageLayer({injection, nullptr}, place.depth + 1);
        if (child) children.push_back({injection.id, std::move(child)});
    }
    if (isStopped()) return nullptr;
    return std::make_shared<const Layer>(language, place.range, tree, tree, std::move(children));
}

Layer::Reference TreeSitterLayerParser::applyToLayer(const Layer::Reference& layer, const Place& place) {
    if (!place.range) return reparseLayer(*layer, place);
    const auto [range, effect] = rangeAfterEdits(*layer->textRange(), m_edits);
    if (effect == EditEffect::touches || !(range == *place.range)) return reparseLayer(*layer, place);
    if (effect == EditEffect::none) return layer;
    return dependsOnPlace(*layer) ? reparseLayer(*layer, place) : moved(*layer, place);
}

Layer::Reference TreeSitterLayerParser::reparseLayer(const Layer& layer, const Place& place) {
    const auto oldTree = edited(layer.tree());
    prepareParser(*layer.language(), place);
    const auto tree = isSmall(place.range) ? m_parser.parse(m_text, nullptr, m_limit)
                                           : m_parser.parse(oldTree.get(), m_limit);
    if (isStopped()) return nullptr;
    if (oldTree && tree) {
        const auto ranges = oldTree->rangesChanged(*tree);
        m_changedRanges.insert(m_changedRanges.end(), ranges.begin(), ranges.end());
    }
    auto children = updateChildLayers(layer, tree, place.depth);
    if (isStopped()) return nullptr;
    return std::make_shared<const Layer>(layer.language(), place.range, tree, tree, std::move(children));
}

std::vector<Layer::Child> TreeSitterLayerParser::updateChildLayers(const Layer& layer,
                                                                   const TreeSitterTree::Reference& tree,
                                                                   int depth) {
    ChildLayerMatcher matcher(layer, m_edits);
    std::vector<Layer::Child> children;
    for (const Stretch& stretch : stretches(injections(*layer.language(), tree, depth), matcher)) {
        auto child = childLanguageLayer(stretch, depth + 1);
        if (!child) continue;
        if (!stretch.earlier) m_changedRanges.push_back(stretch.injection.textRange);
        children.push_back({stretch.injection.id, std::move(child)});
    }
    const auto rest = matcher.rangesOfRest();
    m_changedRanges.insert(m_changedRanges.end(), rest.begin(), rest.end());
    return children;
}

// Null for a language that nobody knows.
Layer::Reference TreeSitterLayerParser::childLanguageLayer(const Stretch& stretch, int depth) {
    if (m_isStopped) return nullptr;
    const Place place{.range = stretch.injection.textRange, .depth = depth};
    if (stretch.earlier && !stretch.earlier->isEmpty()) return applyToLayer(stretch.earlier, place);
    const auto language =
        stretch.earlier ? stretch.earlier->language() : languageNamed(stretch.injection.languageName);
    return language ? parseLayer(language, place) : nullptr;
}

std::vector<TreeSitterInjectedLanguage>
TreeSitterLayerParser::injections(const TreeSitterInternalLanguage& language,
                                  const TreeSitterTree::Reference& tree, int depth) {
    if (isStopped() || !language.injectionsQuery || !tree || depth + 1 >= Layer::mostDepth) return {};
    TreeSitterQueryCursor cursor(*language.injectionsQuery, tree->rootNode(), m_limit);
    cursor.execute();
    std::vector<TreeSitterCapture> captures;
    for (TreeSitterQueryMatch match; cursor.nextMatch(match);)
        appendValidCaptures(match, m_text, captures);
    if (isStopped()) return {};
    auto found = TreeSitterInjectedLanguageMapper(m_text).map(captures);
    dropRepeatedNodes(found);
    return found;
}

// Ids first, for all: a place must not take what an id stands for.
std::vector<TreeSitterLayerParser::Stretch>
TreeSitterLayerParser::stretches(std::vector<TreeSitterInjectedLanguage> injections,
                                 ChildLayerMatcher& matcher) const {
    std::vector<Stretch> stretches;
    stretches.reserve(injections.size());
    for (TreeSitterInjectedLanguage& injection : injections) {
        auto earlier = matcher.takeWithId(injection.id);
        stretches.push_back({std::move(injection), std::move(earlier)});
    }
    for (Stretch& stretch : stretches) {
        if (stretch.earlier) continue;
        const auto language = languageNamed(stretch.injection.languageName);
        if (language) stretch.earlier = matcher.takeAtPlace(stretch.injection.textRange, language);
    }
    return stretches;
}

TreeSitterInternalLanguage::Reference TreeSitterLayerParser::languageNamed(const std::string& name) const {
    const auto language = m_languageProvider ? m_languageProvider->treeSitterLanguage(name) : nullptr;
    return language ? language->internalLanguage() : nullptr;
}

// All of it lies below the edits, so nothing has to be parsed.
Layer::Reference TreeSitterLayerParser::moved(const Layer& layer, const Place& place) {
    std::vector<Layer::Child> children;
    children.reserve(layer.childLanguageLayers().size());
    for (const auto& [id, child] : layer.childLanguageLayers()) {
        const auto range = rangeAfterEdits(*child->textRange(), m_edits).range;
        children.push_back({id, applyToLayer(child, {.range = range, .depth = place.depth + 1})});
        if (m_isStopped) return nullptr;
    }
    return std::make_shared<const Layer>(layer.language(), place.range, edited(layer.tree()),
                                         layer.identityTree(), std::move(children));
}

std::shared_ptr<const TreeSitterTree>
TreeSitterLayerParser::edited(const TreeSitterTree::Reference& tree) const {
    if (!tree) return nullptr;
    auto copy = tree->copy();
    for (const TreeSitterInputEdit& edit : m_edits)
        copy->apply(edit);
    return copy;
}

bool TreeSitterLayerParser::isStopped() {
    return m_isStopped = m_isStopped || m_limit.isReached();
}

} // namespace tessarine
