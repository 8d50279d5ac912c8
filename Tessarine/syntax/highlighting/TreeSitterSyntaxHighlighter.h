#pragma once

#include "Tessarine/base/Operation.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/TreeSitterInternalLanguageMode.h"
#include "Tessarine/syntax/highlighting/HighlightCaptures.h"
#include "Tessarine/syntax/highlighting/LineSyntaxHighlighter.h"

#include <memory>

namespace tessarine {

// Highlights by the captures of a language mode's layers.
//
// Threads: the background has a snapshot of the text and its own copy of the layers, both from the moment of
// the call, so the document may change meanwhile; nothing else is read there, and it never owns the
// highlighter. A highlight waits for those asked for before it, not for parses. Whoever changes the line
// calls cancel(), as what comes back is of the text as it was.
class TreeSitterSyntaxHighlighter final : public LineSyntaxHighlighter,
                                          public std::enable_shared_from_this<TreeSitterSyntaxHighlighter> {
public:
    TreeSitterSyntaxHighlighter(std::shared_ptr<const StringView> stringView,
                                std::shared_ptr<TreeSitterInternalLanguageMode> languageMode)
        : m_stringView(std::move(stringView))
        , m_languageMode(std::move(languageMode)) {}

    // Once the document has been parsed.
    bool canHighlight() const override;

    // A line that takes far too long, as one among thousands of open brackets does, keeps its default
    // attributes.
    void syntaxHighlight(const LineSyntaxHighlighterInput& input) override;

    // Does not call off an earlier one.
    void syntaxHighlight(LineSyntaxHighlighterInput input, Completion completion) override;

    void cancel() override;

private:
    void apply(std::span<const HighlightCapture> captures, const LineSyntaxHighlighterInput& input) const;

    const std::shared_ptr<const StringView> m_stringView;
    const std::shared_ptr<TreeSitterInternalLanguageMode> m_languageMode;
    std::shared_ptr<Operation> m_currentOperation; // the latest
};

} // namespace tessarine
