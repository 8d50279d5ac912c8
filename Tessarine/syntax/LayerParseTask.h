#pragma once

#include "Tessarine/base/Operation.h"
#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/TreeSitterLanguageLayer.h"
#include "Tessarine/syntax/TreeSitterLanguageProvider.h"

#include <chrono>
#include <memory>
#include <vector>

namespace tessarine {

// What a parse in the background gives back.
struct ParsedLayers {
    TreeSitterLanguageLayer::Reference root;        // null if it was cancelled
    std::vector<TreeSitterTextRange> changedRanges; // in the text that was parsed
    std::chrono::steady_clock::duration duration{};
};

// A parse with a text and a parser of its own, to run on any thread: of the whole text, or of layers and the
// edits since.
struct LayerParseTask {
    TextSnapshot text;
    std::shared_ptr<const TreeSitterLanguageProvider> languageProvider;
    TreeSitterLanguageLayer::Reference root;
    std::vector<TreeSitterInputEdit> edits;
    bool isWhole = false; // then the root only tells the language

    ParsedLayers run(const Operation& operation) const;
};

} // namespace tessarine
