#pragma once

#include "Tessarine/base/MainExecutor.h"
#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/document/DetectedIndentStrategy.h"
#include "Tessarine/document/LineEnding.h"
#include "Tessarine/document/TextStore.h"
#include "Tessarine/editing/EditedDocument.h"
#include "Tessarine/syntax/TreeSitterLanguageMode.h"
#include "Tessarine/theme/Theme.h"

#include <memory>
#include <optional>

namespace tessarine {

// All objects of a document made at once, the syntax parsed: what takes long of opening a text, to be done on
// any thread. Whoever made it hands it over whole to the main thread, which gives it to one view.
class TextViewState {
public:
    // Plain text.
    TextViewState(TextStore text, std::shared_ptr<const Theme> theme, const TextMeasurer& measurer);

    // The executor takes what the language mode later does in the background.
    TextViewState(TextStore text, std::shared_ptr<const Theme> theme, const TextMeasurer& measurer,
                  const TreeSitterLanguageMode& languageMode, std::shared_ptr<MainExecutor> mainExecutor);

    const EditedDocument& document() const { return m_document; }

    const std::shared_ptr<const Theme>& theme() const { return m_theme; }

    // What the text turned out to be written with, for whoever wants to go on in the same way. Lines without
    // a break tell no line endings.
    const DetectedIndentStrategy& detectedIndentStrategy() const { return m_detectedIndentStrategy; }

    const std::optional<LineEnding>& detectedLineEndings() const { return m_detectedLineEndings; }

private:
    TextViewState(TextStore text, std::shared_ptr<const Theme> theme, const TextMeasurer& measurer,
                  const LanguageMode& languageMode, std::shared_ptr<MainExecutor> mainExecutor);

    const std::shared_ptr<const Theme> m_theme;
    EditedDocument m_document;
    DetectedIndentStrategy m_detectedIndentStrategy = DetectedIndentStrategy::unknown();
    std::optional<LineEnding> m_detectedLineEndings;
};

} // namespace tessarine
