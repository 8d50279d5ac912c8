#pragma once

#include "Tessarine/document/DetectedIndentStrategy.h"
#include "Tessarine/document/IndentStrategy.h"
#include "Tessarine/document/LineChangeSet.h"
#include "Tessarine/document/LinePosition.h"
#include "Tessarine/document/TextSnapshot.h"
#include "Tessarine/syntax/InsertLineBreakIndentStrategy.h"
#include "Tessarine/syntax/LanguageModeTextChange.h"
#include "Tessarine/syntax/SyntaxNode.h"
#include "Tessarine/syntax/highlighting/LineSyntaxHighlighter.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tessarine {

// What the language knows of one document. Thread: the main one, or whichever builds a document's state
// before it is handed over.
class InternalLanguageMode {
public:
    using ParseCompletion = std::move_only_function<void(bool isParsed)>;

    InternalLanguageMode() = default;
    InternalLanguageMode(const InternalLanguageMode&) = delete;
    InternalLanguageMode& operator=(const InternalLanguageMode&) = delete;
    virtual ~InternalLanguageMode() = default;

    // Parses the whole text of the document at once.
    virtual void parse(const TextSnapshot& text) = 0;

    // The same in the background. The completion runs on the main thread, with false if the parse was
    // abandoned for a later one or the end of the mode.
    virtual void parse(const TextSnapshot& text, ParseCompletion completion) = 0;

    // To be called after each change of the text and its lines. The lines whose syntax changed.
    virtual LineChangeSet textDidChange(const LanguageModeTextChange& change) = 0;

    // A new one, with the default theme. Thread: it belongs to the main one.
    virtual std::shared_ptr<LineSyntaxHighlighter> createLineSyntaxHighlighter() = 0;

    virtual std::optional<SyntaxNode> syntaxNode(const LinePosition& position) = 0;

    virtual std::int64_t currentIndentLevel(const DocumentLineNode& line,
                                            const IndentStrategy& strategy) const = 0;

    // For a line break in place of a selection.
    virtual InsertLineBreakIndentStrategy strategyForInsertingLineBreak(const LinePosition& start,
                                                                        const LinePosition& end,
                                                                        const IndentStrategy& strategy) = 0;

    virtual DetectedIndentStrategy detectIndentStrategy() = 0;
};

} // namespace tessarine
