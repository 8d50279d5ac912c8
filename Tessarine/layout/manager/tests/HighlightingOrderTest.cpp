#include "Tessarine/layout/manager/tests/LaidOutText.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

// What was asked for. Lines become bold, those in the background when the test says so.
struct Requests {
    int atOnce = 0;
    int calledOff = 0; // as often as a highlighter has been told so
    std::vector<std::function<void()>> inBackground;
};

class NotingHighlighter final : public LineSyntaxHighlighter {
public:
    explicit NotingHighlighter(Requests& requests)
        : m_requests(requests) {}

    bool canHighlight() const override { return true; }

    void syntaxHighlight(const LineSyntaxHighlighterInput& input) override {
        ++m_requests.atOnce;
        makeBold(input);
    }

    void syntaxHighlight(LineSyntaxHighlighterInput input, Completion completion) override {
        m_requests.inBackground.push_back(
            [input = std::move(input), shared = std::make_shared<Completion>(std::move(completion))] {
                makeBold(input);
                (*shared)({});
            });
    }

    void cancel() override { ++m_requests.calledOff; }

private:
    static void makeBold(const LineSyntaxHighlighterInput& input) {
        AttributedString& string = *input.attributedString;
        string.addAttributes({.font = Font{"Menlo-Regular", 14, FontTraits::bold}}, {0, string.length()});
    }

    Requests& m_requests;
};

class NotingLanguageMode final : public InternalLanguageMode {
public:
    explicit NotingLanguageMode(Requests& requests)
        : m_requests(requests) {}

    void parse(const TextSnapshot&) override {}

    void parse(const TextSnapshot&, ParseCompletion completion) override { completion(true); }

    LineChangeSet textDidChange(const LanguageModeTextChange&) override { return {}; }

    std::shared_ptr<LineSyntaxHighlighter> createLineSyntaxHighlighter() override {
        return std::make_shared<NotingHighlighter>(m_requests);
    }

    std::optional<SyntaxNode> syntaxNode(const LinePosition&) override { return std::nullopt; }

    std::int64_t currentIndentLevel(const DocumentLineNode&, const IndentStrategy&) const override {
        return 0;
    }

    InsertLineBreakIndentStrategy strategyForInsertingLineBreak(const LinePosition&, const LinePosition&,
                                                                const IndentStrategy&) override {
        return {};
    }

    DetectedIndentStrategy detectIndentStrategy() override { return DetectedIndentStrategy::unknown(); }

private:
    Requests& m_requests;
};

TEST(HighlightingOrder, IsAtOnceAfterChangesAndLaterAfterScrolling) {
    std::u16string lines;
    for (int i = 0; i < 100; ++i)
        lines += u"word\n";
    LaidOutText text(lines);
    Requests requests;
    text.layout().setLanguageMode(std::make_shared<NotingLanguageMode>(requests));
    text.layout().layoutIfNeeded();
    EXPECT_EQ(requests.atOnce, 10);
    EXPECT_TRUE(requests.inBackground.empty());
    EXPECT_EQ(text.shownRows().front().frame.width, 44);
    text.scrollTo(55);
    EXPECT_EQ(requests.atOnce, 10);
    ASSERT_EQ(requests.inBackground.size(), 5U);
    EXPECT_EQ(text.shownRows().back().frame.width, 40) << "not yet";
    const int calledOff = requests.calledOff;
    text.scrollTo(56);
    EXPECT_EQ(requests.inBackground.size(), 6U) << "the line that has come, the others are waited for";
    text.scrollTo(55);
    EXPECT_EQ(requests.calledOff, calledOff + 2) << "before it was asked, and when it left";
    requests.inBackground.pop_back();

    // Wider rows have to be placed anew, and still nobody waits for the others' colours.
    const int asked = text.delegate->requests;
    const auto waiting = std::exchange(requests.inBackground, {});
    waiting.back()();
    EXPECT_EQ(text.delegate->requests, asked + 1);
    text.layout().layoutIfNeeded();
    EXPECT_EQ(text.shownRows().back().frame.width, 44);
    EXPECT_EQ(requests.atOnce, 10);
    EXPECT_TRUE(requests.inBackground.empty()) << "four are still on their way";

    text.edit({31, 0}, u"x");
    EXPECT_EQ(requests.atOnce, 10 + 1 + 4) << "the line and those that were still waiting";
    EXPECT_EQ(text.fault(), std::nullopt);
}

} // namespace
