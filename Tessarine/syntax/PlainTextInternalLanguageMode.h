#pragma once

#include "Tessarine/syntax/InternalLanguageMode.h"
#include "Tessarine/syntax/highlighting/PlainTextSyntaxHighlighter.h"

namespace tessarine {

// Text without a language: nothing to parse, nothing to know.
class PlainTextInternalLanguageMode final : public InternalLanguageMode {
public:
    void parse(const TextSnapshot& /*text*/) override {}

    // Calls back at once, on the same thread.
    void parse(const TextSnapshot& /*text*/, ParseCompletion completion) override { completion(true); }

    LineChangeSet textDidChange(const LanguageModeTextChange& /*change*/) override { return {}; }

    std::shared_ptr<LineSyntaxHighlighter> createLineSyntaxHighlighter() override {
        return std::make_shared<PlainTextSyntaxHighlighter>();
    }

    std::optional<SyntaxNode> syntaxNode(const LinePosition& /*position*/) override { return std::nullopt; }

    std::int64_t currentIndentLevel(const DocumentLineNode& /*line*/,
                                    const IndentStrategy& /*strategy*/) const override {
        return 0;
    }

    InsertLineBreakIndentStrategy strategyForInsertingLineBreak(const LinePosition& /*start*/,
                                                                const LinePosition& /*end*/,
                                                                const IndentStrategy& /*strategy*/) override {
        return {};
    }

    DetectedIndentStrategy detectIndentStrategy() override { return DetectedIndentStrategy::unknown(); }
};

} // namespace tessarine
