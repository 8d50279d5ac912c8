#pragma once

#include "Tessarine/document/LineManager.h"
#include "Tessarine/layout/LineController.h"
#include "Tessarine/layout/tests/FixedAdvanceShaper.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessarine {

// Makes every 'b' bold. What is asked of it in the background happens when the test says so.
class BoldHighlighter final : public LineSyntaxHighlighter {
public:
    explicit BoldHighlighter(std::shared_ptr<const StringView> stringView)
        : m_stringView(std::move(stringView)) {}

    bool canHighlight() const override { return hasSyntax; }

    void syntaxHighlight(const LineSyntaxHighlighterInput& input) override {
        highlighted.push_back(rangeOf(input));
        makeBold(*input.attributedString);
    }

    void syntaxHighlight(LineSyntaxHighlighterInput input, Completion completion) override {
        asked.push_back(rangeOf(input));
        m_pending = Pending{std::move(input), std::move(completion)};
    }

    void cancel() override {
        if (!m_pending) return;
        ++cancelled;
        finish(std::unexpected(TreeSitterSyntaxHighlighterError::Cancelled));
    }

    bool hasPending() const { return m_pending.has_value(); }

    void runPending() {
        makeBold(*m_pending->input.attributedString);
        finish({});
    }

    bool hasSyntax = true;
    FontTraits traits = FontTraits::bold;
    int cancelled = 0;

    // Ranges of the document.
    std::vector<TextRange> highlighted;
    std::vector<TextRange> asked;

private:
    struct Pending {
        LineSyntaxHighlighterInput input;
        Completion completion;
    };

    static TextRange rangeOf(const LineSyntaxHighlighterInput& input) {
        return {input.byteRange.location.value() / 2, input.byteRange.length.value() / 2};
    }

    void makeBold(AttributedString& string) const {
        for (std::int64_t at = 0; at < string.length(); ++at)
            if (string.characterAt(at) == u'b')
                string.addAttributes({.font = theme()->font().withTraits(traits)}, {at, 1});
    }

    void finish(const Result& result) {
        Pending pending = std::move(*std::exchange(m_pending, std::nullopt));
        pending.completion(result);
    }

    const std::shared_ptr<const StringView> m_stringView;
    std::optional<Pending> m_pending;
};

// A document of which one line is displayed.
struct DisplayedLine : LineControllerDelegate, std::enable_shared_from_this<DisplayedLine> {
    static std::shared_ptr<DisplayedLine> create(std::u16string_view text, std::int64_t row = 0) {
        auto made = std::make_shared<DisplayedLine>(text);
        made->controller = made->newController(row);
        return made;
    }

    explicit DisplayedLine(std::u16string_view text)
        : stringView(std::make_shared<StringView>(text))
        , lineManager(std::make_shared<LineManager>(stringView))
        , highlighter(std::make_shared<BoldHighlighter>(stringView)) {
        lineManager->rebuild(text);
    }

    std::shared_ptr<LineController> newController(std::int64_t row) {
        auto made = std::make_shared<LineController>(DocumentLineNodeReference(&lineManager->lineAtRow(row)),
                                                     stringView, shaper);
        made->setDelegate(weak_from_this());
        made->setConstrainingWidth(50);
        return made;
    }

    // The controller is told if the line is edited.
    void replace(std::int64_t location, std::int64_t length, std::u16string_view text) {
        stringView->replaceCharacters(location, length, text);
        lineManager->removeCharacters(location, length);
        if (!text.empty()) lineManager->insertText(text, location);
        controller->invalidateString();
    }

    void prepareAll(bool asynchronously = false) {
        controller->prepareToDisplayString(LineController::InRect{{.height = 1e9}}, asynchronously);
    }

    std::vector<std::u16string> rows() const {
        std::vector<std::u16string> texts;
        for (const LineFragmentReference& fragment : controller->lineFragments())
            texts.push_back(stringView->substring(controller->line().location() + fragment->range.location,
                                                  fragment->range.length));
        return texts;
    }

    std::shared_ptr<LineSyntaxHighlighter> lineSyntaxHighlighter(LineController& asking) override {
        ++highlightersMade;
        highlighter->setTheme(asking.theme());
        highlighter->setKern(asking.kern());
        return highlighter;
    }

    void lineControllerDidChangeHeight(LineController& /*controller*/) override { ++heightChanges; }

    const std::shared_ptr<StringView> stringView;
    const std::shared_ptr<LineManager> lineManager;
    const std::shared_ptr<FixedAdvanceShaper> shaper = std::make_shared<FixedAdvanceShaper>();
    const std::shared_ptr<BoldHighlighter> highlighter;
    std::shared_ptr<LineController> controller;
    int highlightersMade = 0;
    int heightChanges = 0;
};

} // namespace tessarine
