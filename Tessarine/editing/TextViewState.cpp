#include "Tessarine/editing/TextViewState.h"

#include "Tessarine/document/LineEndingDetector.h"
#include "Tessarine/syntax/InternalLanguageModeFactory.h"
#include "Tessarine/syntax/PlainTextLanguageMode.h"

namespace tessarine {

TextViewState::TextViewState(TextStore text, std::shared_ptr<const Theme> theme, const TextMeasurer& measurer)
    : TextViewState(std::move(text), std::move(theme), measurer, PlainTextLanguageMode(), nullptr) {}

TextViewState::TextViewState(TextStore text, std::shared_ptr<const Theme> theme, const TextMeasurer& measurer,
                             const TreeSitterLanguageMode& languageMode,
                             std::shared_ptr<MainExecutor> mainExecutor)
    : TextViewState(std::move(text), std::move(theme), measurer,
                    static_cast<const LanguageMode&>(languageMode), std::move(mainExecutor)) {}

// The detections read the lines and the syntax.
TextViewState::TextViewState(TextStore text, std::shared_ptr<const Theme> theme, const TextMeasurer& measurer,
                             const LanguageMode& languageMode, std::shared_ptr<MainExecutor> mainExecutor)
    : m_theme(std::move(theme)) {
    m_document.stringView = std::make_shared<StringView>(std::move(text));
    m_document.lineManager = std::make_shared<LineManager>(m_document.stringView);
    m_document.languageMode =
        InternalLanguageModeFactory(std::move(mainExecutor))
            .internalLanguageMode(languageMode, m_document.stringView, m_document.lineManager);
    m_document.lineManager->setEstimatedLineHeight(measurer.metrics(m_theme->font()).lineHeight());
    m_document.lineManager->rebuild();
    m_document.languageMode->parse(m_document.stringView->snapshot());
    m_detectedIndentStrategy = m_document.languageMode->detectIndentStrategy();
    m_detectedLineEndings = LineEndingDetector(*m_document.lineManager, *m_document.stringView).detect();
}

} // namespace tessarine
