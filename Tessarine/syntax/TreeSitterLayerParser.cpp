#include "Tessarine/syntax/TreeSitterLayerParser.h"

#include "Tessarine/syntax/EditedRange.h"

#include <algorithm>
#include <iterator>
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

bool touches(ByteInterval interval, const TreeSitterTextRange& range) {
    return range.startByte() <= interval.last && range.endByte() >= interval.first;
}

// Whether looking through the interval, twice, is worth it.
bool isSmallPartOf(const TreeSitterNode& root, ByteInterval interval) {
    return (interval.last - interval.first).value() * 4 <= (root.endByte() - root.startByte()).value();
}

} // namespace

Layer::Reference TreeSitterLayerParser::parse(const TreeSitterInternalLanguage::Reference& language) {
    return parseLayer(language, {.range = {}, .depth = 0});
}

Layer::Reference TreeSitterLayerParser::apply(const Layer::Reference& root,
                                              std::span<const TreeSitterInputEdit> edits) {
    m_edits = edits;
    m_touchedRanges = rangesTouched(edits);
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
    Layer::Children children;
    if (const auto search = injectionsSearch(*language, tree, place.depth)) {
        ChildLayerMatcher none(0);
        children = childLayers(search->inWholeTree(*tree), none, place.depth);
    }
    if (isStopped()) return nullptr;
    return std::make_shared<const Layer>(language, place.range, tree, tree, std::move(children));
}

Layer::Reference TreeSitterLayerParser::applyToLayer(const Layer::Reference& layer, const Place& place) {
    if (!place.range) return reparseLayer(*layer, place);
    const auto [range, effect] = rangeAfterEdits(*layer->textRange(), m_edits);
    return range == *place.range ? applyEffect(layer, place, effect) : reparseLayer(*layer, place);
}

// To a layer whose range the edits have brought to its place.
Layer::Reference TreeSitterLayerParser::applyEffect(const Layer::Reference& layer, const Place& place,
                                                    EditEffect effect) {
    if (effect == EditEffect::none) return layer;
    if (effect == EditEffect::touches || dependsOnPlace(*layer)) return reparseLayer(*layer, place);
    return moved(*layer, place);
}

Layer::Reference TreeSitterLayerParser::reparseLayer(const Layer& layer, const Place& place) {
    const auto oldTree = edited(layer.tree());
    prepareParser(*layer.language(), place);
    const auto tree = isSmall(place.range) ? m_parser.parse(m_text, nullptr, m_limit)
                                           : m_parser.parse(oldTree.get(), m_limit);
    if (isStopped()) return nullptr;
    Reparse reparse{.layer = layer, .place = place, .oldTree = oldTree, .tree = tree, .changedRanges = {}};
    if (oldTree && tree) reparse.changedRanges = oldTree->rangesChanged(*tree);
    m_changedRanges.insert(m_changedRanges.end(), reparse.changedRanges.begin(), reparse.changedRanges.end());
    auto children = updateChildLayers(reparse);
    if (isStopped()) return nullptr;
    return std::make_shared<const Layer>(layer.language(), place.range, tree, tree, std::move(children));
}

// Nothing if there is nothing to look for.
std::optional<InjectionsSearch>
TreeSitterLayerParser::injectionsSearch(const TreeSitterInternalLanguage& language,
                                        const TreeSitterTree::Reference& tree, int depth) {
    if (isStopped() || !language.injectionsQuery || !tree || depth + 1 >= Layer::mostDepth) return {};
    return InjectionsSearch(*language.injectionsQuery, m_text, m_limit);
}

Layer::Children TreeSitterLayerParser::updateChildLayers(const Reparse& reparse) {
    const auto search = injectionsSearch(*reparse.layer.language(), reparse.tree, reparse.place.depth);
    if (!search) {
        for (const auto& [id, child] : reparse.layer.childLanguageLayers())
            m_changedRanges.push_back(rangeAfterEdits(*child->textRange(), m_edits).range);
        return {};
    }
    const auto interval = changedInterval(reparse);
    auto children = interval ? updateChildLayersNear(*interval, reparse, *search) : std::nullopt;
    return children ? std::move(*children) : updateAllChildLayers(reparse, *search);
}

Layer::Children TreeSitterLayerParser::updateAllChildLayers(const Reparse& reparse,
                                                            const InjectionsSearch& search) {
    ChildLayerMatcher matcher(reparse.layer.childLanguageLayers().size());
    for (const Layer::Child& child : reparse.layer.childLanguageLayers())
        matcher.add(child, rangeAfterEdits(*child.layer->textRange(), m_edits).range);
    return childLayers(search.inWholeTree(*reparse.tree), matcher, reparse.place.depth);
}

// A match that touches nothing of what changed is in both trees. So what the others captured in the old tree
// is in doubt, and what they capture in the new one is found anew. Nothing if that does not fit together.
std::optional<Layer::Children> TreeSitterLayerParser::updateChildLayersNear(ByteInterval interval,
                                                                            const Reparse& reparse,
                                                                            const InjectionsSearch& search) {
    const ByteInterval doubtful = search.grownToCaptures(interval, *reparse.oldTree);
    FoundInjections found = search.near(doubtful, *reparse.tree);
    ChildLayerMatcher matcher(0);
    std::vector<Kept> kept;
    for (const Layer::Child& child : reparse.layer.childLanguageLayers()) {
        const RangeAfterEdits after = rangeAfterEdits(*child.layer->textRange(), m_edits);
        if (touches(doubtful, after.range))
            matcher.add(child, after.range);
        else
            kept.push_back({child.layer, after});
    }
    const auto liesElsewhere = [&](const auto& injection) { return !touches(doubtful, injection.textRange); };
    std::vector<TreeSitterInjectedLanguage> elsewhere;
    std::ranges::copy_if(found.injections, std::back_inserter(elsewhere), liesElsewhere);
    if (!found.areIndependent || !areKept(elsewhere, kept)) return std::nullopt;
    std::erase_if(found.injections, liesElsewhere);

    const int depth = reparse.place.depth;
    Layer::Children children = childLayers(std::move(found), matcher, depth);
    for (const auto& [layer, after] : kept) {
        const Place place{.range = after.range, .depth = depth + 1};
        children.layers.push_back({nullptr, applyEffect(layer, place, after.effect)});
        if (m_isStopped) break;
    }
    return children;
}

// The kept ones are in the order of their starts.
bool TreeSitterLayerParser::areKept(std::span<const TreeSitterInjectedLanguage> injections,
                                    std::span<const Kept> kept) const {
    return std::ranges::all_of(injections, [&](const TreeSitterInjectedLanguage& injection) {
        const auto start = [](const Kept& child) { return child.after.range.startByte(); };
        const auto found = std::ranges::lower_bound(kept, injection.textRange.startByte(), {}, start);
        return found != kept.end() && found->after.range == injection.textRange &&
               found->layer->language() == languageNamed(injection.languageName);
    });
}

// What lies between all that edits touched or the parse changed. Nothing if it cannot be told, or if looking
// through all is as well.
std::optional<ByteInterval> TreeSitterLayerParser::changedInterval(const Reparse& reparse) const {
    if (!reparse.oldTree || !reparse.layer.childrenAreIndependent() || isSmall(reparse.place.range))
        return std::nullopt;
    const TreeSitterNode root = reparse.tree->rootNode();
    ByteInterval interval{root.endByte(), root.startByte()};
    for (const auto* ranges : {&m_touchedRanges, &reparse.changedRanges})
        for (const TreeSitterTextRange& range : *ranges) {
            interval.first = std::min(interval.first, std::max(range.startByte(), root.startByte()));
            interval.last = std::max(interval.last, std::min(range.endByte(), root.endByte()));
        }
    if (interval.first > interval.last || !isSmallPartOf(root, interval)) return std::nullopt;
    return interval;
}

Layer::Children TreeSitterLayerParser::childLayers(FoundInjections found, ChildLayerMatcher& matcher,
                                                   int depth) {
    Layer::Children children{.layers = {}, .areIndependent = found.areIndependent};
    for (const Stretch& stretch : stretches(std::move(found.injections), matcher)) {
        auto child = childLanguageLayer(stretch, depth + 1);
        if (!child) continue;
        if (!stretch.earlier) m_changedRanges.push_back(stretch.injection.textRange);
        children.layers.push_back({stretch.injection.id, std::move(child)});
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
    Layer::Children children{.layers = {}, .areIndependent = layer.childrenAreIndependent()};
    children.layers.reserve(layer.childLanguageLayers().size());
    for (const auto& [id, child] : layer.childLanguageLayers()) {
        const auto range = rangeAfterEdits(*child->textRange(), m_edits).range;
        children.layers.push_back({id, applyToLayer(child, {.range = range, .depth = place.depth + 1})});
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
