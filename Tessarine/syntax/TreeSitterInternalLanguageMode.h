#pragma once

#include "Tessarine/base/MainExecutor.h"
#include "Tessarine/base/OperationQueue.h"
#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/InternalLanguageMode.h"
#include "Tessarine/syntax/LayerParseTask.h"
#include "Tessarine/syntax/TreeSitterLanguageLayers.h"
#include "Tessarine/syntax/TreeSitterLanguageMode.h"
#include "Tessarine/syntax/TreeSitterLanguageModeDelegate.h"
#include "Tessarine/syntax/TreeSitterParser.h"
#include "Tessarine/syntax/TreeSitterParserDelegate.h"

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace tessarine {

// The layers of one document, kept in step with its text.
//
// Threads: the mode belongs to the main thread. Work on its queue has a snapshot of the text, layers that
// never change and a parser of its own; what it made is installed on the main thread, moved to where the text
// has come to since. So edits may come at any time.
// With a budget, an edit that takes longer is parsed in the background. The next edit ends that parse and
// starts it anew, but not more than mostRestarts times in a row: then it is left to finish, so that a text
// that never rests gets its colours too. After the last edit a parse always completes.
// A text beyond 2^32 bytes of UTF-16 is more than the parser counts, and has no syntax.
class TreeSitterInternalLanguageMode final
    : public InternalLanguageMode,
      public TreeSitterParserDelegate,
      public std::enable_shared_from_this<TreeSitterInternalLanguageMode> {
public:
    static constexpr int mostRestarts = 3;

    static std::shared_ptr<TreeSitterInternalLanguageMode>
    create(const TreeSitterLanguageMode& languageMode, std::shared_ptr<const StringView> stringView,
           std::shared_ptr<LineManager> lineManager, std::shared_ptr<MainExecutor> mainExecutor);

    // Edits are parsed from what the delegate has; without one from an empty text.
    void setDelegate(std::weak_ptr<TreeSitterLanguageModeDelegate> delegate) {
        m_delegate = std::move(delegate);
    }

    void parse(const TextSnapshot& text) override;
    void parse(const TextSnapshot& text, ParseCompletion completion) override;
    LineChangeSet textDidChange(const LanguageModeTextChange& change) override;
    std::shared_ptr<LineSyntaxHighlighter> createLineSyntaxHighlighter() override;
    std::optional<SyntaxNode> syntaxNode(const LinePosition& position) override;
    std::int64_t currentIndentLevel(const DocumentLineNode& line,
                                    const IndentStrategy& strategy) const override;
    InsertLineBreakIndentStrategy strategyForInsertingLineBreak(const LinePosition& start,
                                                                const LinePosition& end,
                                                                const IndentStrategy& strategy) override;
    DetectedIndentStrategy detectIndentStrategy() override;

    std::optional<TreeSitterTextProviderResult> parserBytesAt(ByteCount byteIndex) override;

    // The captures of the highlights queries that touch the range, for use before the next edit.
    std::vector<TreeSitterCapture> captures(const ByteRange& range) {
        return m_layers.captures(range, m_stringView->snapshot());
    }

    TreeSitterLanguageLayers& layers() { return m_layers; }

    const std::shared_ptr<const TreeSitterLanguageProvider>& languageProvider() const {
        return m_languageProvider;
    }

    // Whether a parse is still to be installed.
    bool hasBackgroundParse() const { return m_backgroundParse.has_value(); }

    const OperationQueue& operationQueue() const { return m_operationQueue; }

    // The highlighters', and their way back from there. Parses have another, so that no line waits for them.
    OperationQueue& highlightQueue() { return m_highlightQueue; }

    const std::shared_ptr<MainExecutor>& mainExecutor() const { return m_mainExecutor; }

private:
    struct BackgroundParse {
        std::shared_ptr<Operation> operation;
        std::size_t editCount; // of those since the root was parsed, how many it knows of
        bool isWhole;
    };

    TreeSitterInternalLanguageMode(const TreeSitterLanguageMode& languageMode,
                                   std::shared_ptr<const StringView> stringView,
                                   std::shared_ptr<LineManager> lineManager,
                                   std::shared_ptr<MainExecutor> mainExecutor);

    bool reparse(const ParseLimit& limit, LineChangeSet& changes);
    void cancelBackgroundWork();
    void restartBackgroundParse();
    void startBackgroundParse(LayerParseTask task, ParseCompletion completion);
    void reparseInBackground();
    void install(ParsedLayers parsed);
    LineChangeSet bringUpToText();
    void replaceLayers(TreeSitterLanguageLayer::Reference root, std::size_t editCount);
    void forgetLayers();

    LineChangeSet linesOf(std::vector<TreeSitterTextRange> ranges, std::size_t firstLaterEdit) const;
    LineChangeSet linesTouched(std::size_t editCount) const;
    void markLines(const TreeSitterTextRange& range, LineChangeSet& changes) const;

    // The document.
    std::weak_ptr<TreeSitterLanguageModeDelegate> m_delegate;
    const std::shared_ptr<const StringView> m_stringView;
    const std::shared_ptr<LineManager> m_lineManager;

    const TreeSitterInternalLanguage::Reference m_language;
    const std::shared_ptr<const TreeSitterLanguageProvider> m_languageProvider;
    const std::optional<std::chrono::steady_clock::duration> m_reparseBudget;
    TreeSitterParser m_parser;
    TreeSitterLanguageLayers m_layers;

    // What goes on in the background.
    std::optional<BackgroundParse> m_backgroundParse;
    int m_restarts = 0;
    bool m_lastReparseWasInBudget = true;
    const std::shared_ptr<MainExecutor> m_mainExecutor;
    OperationQueue m_operationQueue; // these two last: their work ends before the rest
    OperationQueue m_highlightQueue;
};

} // namespace tessarine
