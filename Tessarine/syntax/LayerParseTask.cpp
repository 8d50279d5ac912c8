#include "Tessarine/syntax/LayerParseTask.h"

#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TextProvider.h"
#include "Tessarine/syntax/TreeSitterLayerParser.h"

namespace tessarine {

ParsedLayers LayerParseTask::run(const Operation& operation) const {
    if (operation.isCancelled()) return {};
    const auto start = std::chrono::steady_clock::now();
    const auto provider = std::make_shared<SnapshotTextProvider>(text);
    TreeSitterParser parser(preferredUTF16Encoding);
    parser.setDelegate(provider);
    const ParseLimit limit(operation);
    TreeSitterLayerParser layers(parser, text, languageProvider.get(), limit);
    ParsedLayers parsed;
    parsed.root = isWhole ? layers.parse(root->language()) : layers.apply(root, edits);
    parsed.changedRanges = layers.takeChangedRanges();
    parsed.duration = std::chrono::steady_clock::now() - start;
    return parsed;
}

} // namespace tessarine
