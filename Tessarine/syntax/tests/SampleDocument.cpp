#include "Tessarine/syntax/tests/SampleDocument.h"

#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterLayerParser.h"
#include "Tessarine/syntax/tests/TreeText.h"

#include <algorithm>

namespace tessarine {

namespace {

std::string layerText(const TreeSitterLanguageLayer& layer) {
    std::string text = layer.textRange() ? layer.textRange()->startByte().description() + " to " +
                                               layer.textRange()->endByte().description()
                                         : "root";
    text += " " + std::string(grammarName(layer.language()->languagePointer)) + "\n";
    text += layer.tree() ? treeText(*layer.tree()) : "no tree\n";
    for (const auto& [id, child] : layer.childLanguageLayers())
        text += "child " + layerText(*child);
    return text;
}

std::string captureText(TreeSitterLanguageLayers& layers, const TextSnapshot& text, const ByteRange& range) {
    std::string all;
    for (const TreeSitterCapture& capture : layers.captures(range, text))
        all += std::string(capture.name()) + " " + capture.byteRange().description() + "\n";
    return all;
}

std::string descriptionOf(TreeSitterLanguageLayers& layers, const TextSnapshot& text) {
    std::string all = layerText(*layers.root());
    const ByteCount length = ByteCount::ofCodeUnits(text.length());
    all += captureText(layers, text, {0, length});
    for (ByteCount at = 0; at < length; at += 62)
        all += captureText(layers, text, {at, std::min<ByteCount>(30, length - at)});
    return all;
}

} // namespace

std::string SampleDocument::description() const {
    return descriptionOf(mode->layers(), stringView->snapshot());
}

TreeSitterLanguageLayers SampleDocument::freshLayers() const {
    TreeSitterParser parser(preferredUTF16Encoding);
    const TextSnapshot text = stringView->snapshot();
    const ParseLimit unlimited;
    TreeSitterLayerParser layers(parser, text, mode->languageProvider().get(), unlimited);
    return TreeSitterLanguageLayers(layers.parse(mode->layers().root()->language()));
}

std::string SampleDocument::freshDescription() const {
    TreeSitterLanguageLayers fresh = freshLayers();
    return descriptionOf(fresh, stringView->snapshot());
}

bool SampleDocument::isBroken() const {
    const auto tree = freshLayers().root()->tree();
    return tree && ts_node_has_error(tree->rootNode().rawValue()) &&
           treeText(*tree) != treeText(*mode->layers().root()->tree());
}

std::vector<std::int64_t> SampleDocument::rowsOf(const LineChangeSet& changes) {
    std::vector<std::int64_t> rows;
    for (const DocumentLineNodeReference& line : changes.editedLines())
        rows.push_back(line->index());
    std::ranges::sort(rows);
    return rows;
}

} // namespace tessarine
