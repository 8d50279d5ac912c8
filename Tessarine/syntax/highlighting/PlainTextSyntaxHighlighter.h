#pragma once

#include "Tessarine/syntax/highlighting/LineSyntaxHighlighter.h"

namespace tessarine {

// For text without a language: nothing but the default attributes.
class PlainTextSyntaxHighlighter final : public LineSyntaxHighlighter {
public:
    bool canHighlight() const override { return false; }

    void syntaxHighlight(const LineSyntaxHighlighterInput& /*input*/) override {}

    // Calls back at once.
    void syntaxHighlight(LineSyntaxHighlighterInput /*input*/, Completion completion) override {
        completion({});
    }

    void cancel() override {}
};

} // namespace tessarine
