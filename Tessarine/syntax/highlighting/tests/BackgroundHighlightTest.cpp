#include "Tessarine/syntax/highlighting/tests/HighlightedDocument.h"
#include "Tessarine/syntax/tests/RandomSource.h"
#include "Tessarine/syntax/tests/SampleText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <deque>

using namespace tessarine;
using namespace std::chrono_literals;

namespace {

using Error = TreeSitterSyntaxHighlighterError;
using Result = LineSyntaxHighlighter::Result;

// A highlight of a line in the background and what it has come to.
struct Highlight {
    LineSyntaxHighlighterInput input;
    AttributedString before = *input.attributedString;
    std::optional<Result> result = std::nullopt;

    explicit Highlight(LineSyntaxHighlighterInput line)
        : input(std::move(line)) {}

    void ask(LineSyntaxHighlighter& highlighter) {
        highlighter.syntaxHighlight(input, [this](const Result& ended) { result = ended; });
    }

    bool hasFailedWith(Error error) const {
        return result == std::unexpected(error) && *input.attributedString == before;
    }
};

TEST(BackgroundHighlight, AppliesWhatTheOneHereAndNowDoes) {
    HighlightedDocument document(u"int a; // b", "c");
    document.parse();
    Highlight highlight(document.inputOfAll());
    highlight.ask(*document.highlighter);
    document.executor->waitFor(1);
    EXPECT_EQ(*highlight.input.attributedString, highlight.before);
    EXPECT_FALSE(highlight.result);
    document.executor->runNext();
    EXPECT_TRUE(highlight.result && highlight.result->has_value());
    EXPECT_EQ(*highlight.input.attributedString, document.highlighted());
}

TEST(BackgroundHighlight, OfAnEmptyLineSucceeds) {
    HighlightedDocument document(u"int a;", "c");
    document.parse();
    Highlight highlight(document.input({6, 0}));
    highlight.ask(*document.highlighter);
    document.executor->runNext();
    EXPECT_TRUE(highlight.result && highlight.result->has_value());
}

TEST(BackgroundHighlight, CancelledBetweenSearchAndApplicationChangesNothing) {
    HighlightedDocument document(u"int a; // b", "c");
    document.parse();
    Highlight highlight(document.inputOfAll());
    highlight.ask(*document.highlighter);
    document.executor->waitFor(1);
    document.highlighter->cancel();
    document.executor->runNext();
    EXPECT_TRUE(highlight.hasFailedWith(Error::Cancelled));
}

TEST(BackgroundHighlight, CancelIsForTheLatestAlone) {
    HighlightedDocument document(u"int a; // b", "c");
    document.parse();
    std::array highlights{Highlight(document.inputOfAll()), Highlight(document.inputOfAll())};
    for (Highlight& highlight : highlights)
        highlight.ask(*document.highlighter);
    document.highlighter->cancel();
    document.highlighter->cancel();
    document.executor->waitFor(2);
    document.settle();
    EXPECT_TRUE(highlights[0].result && highlights[0].result->has_value());
    EXPECT_TRUE(highlights[1].hasFailedWith(Error::Cancelled));
}

// Holds the background until it is let go.
class Barrier {
public:
    explicit Barrier(OperationQueue& queue) {
        queue.add([this](const auto&) { m_isOpen.wait(false); });
    }

    void open() {
        m_isOpen = true;
        m_isOpen.notify_one();
    }

private:
    std::atomic<bool> m_isOpen = false;
};

TEST(BackgroundHighlight, IsCancelledByAWholeParse) {
    HighlightedDocument document(u"int a; // b", "c");
    document.parse();
    Highlight highlight(document.inputOfAll());
    Barrier barrier(document.mode->highlightQueue());
    highlight.ask(*document.highlighter);
    document.mode->parse(document.stringView->snapshot(), [](bool) {});
    barrier.open();
    document.executor->waitFor(2);
    document.settle();
    EXPECT_TRUE(highlight.hasFailedWith(Error::Cancelled));
}

// Knows no language, and while it is held does not say so.
class HeldProvider : public TreeSitterLanguageProvider {
public:
    std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(std::string_view /*name*/) const override {
        m_isHeld.wait(true);
        return nullptr;
    }

    void hold(bool isHeld) {
        m_isHeld = isHeld;
        m_isHeld.notify_one();
    }

private:
    std::atomic<bool> m_isHeld = false;
};

TEST(BackgroundHighlight, DoesNotWaitForAParse) {
    const auto provider = std::make_shared<HeldProvider>();
    HighlightedDocument document(u"<script>a</script>", SampleLanguages::shared()->treeSitterLanguage("html"),
                                 provider);
    document.parse();
    provider->hold(true);
    document.mode->parse(document.stringView->snapshot(), [](bool) {});
    Highlight highlight(document.inputOfAll());
    highlight.ask(*document.highlighter);
    document.executor->runNext();
    EXPECT_TRUE(highlight.result && highlight.result->has_value());
    provider->hold(false);
    document.settle();
}

TEST(BackgroundHighlight, OutlivesItsHighlighter) {
    HighlightedDocument document(u"int a; // b", "c");
    document.parse();
    Highlight searched(document.inputOfAll());
    searched.ask(*document.highlighter);
    document.executor->waitFor(1);
    Highlight waiting(document.inputOfAll());
    Barrier barrier(document.mode->highlightQueue());
    waiting.ask(*document.highlighter);
    document.highlighter.reset();
    barrier.open();
    document.executor->waitFor(2);
    document.settle();
    EXPECT_TRUE(searched.hasFailedWith(Error::OperationDeallocated));
    EXPECT_TRUE(waiting.hasFailedWith(Error::OperationDeallocated));
    EXPECT_EQ(description(Error::Cancelled), "Operation was cancelled");
    EXPECT_EQ(description(Error::OperationDeallocated), "The operation was deallocated");
}

struct Sample {
    const char* language;
    const char* file;
};

class HighlightedSamples : public ::testing::TestWithParam<Sample> {};

// Line by line, and against the same stretch of a highlight of the whole text at once.
TEST_P(HighlightedSamples, LookTheSameHereAndInTheBackground) {
    HighlightedDocument document(sampleText(GetParam().file), GetParam().language);
    document.parse();
    const AttributedString whole = document.highlighted();
    ASSERT_GT(whole.runs({0, whole.length()}).size(), 10);
    std::deque<Highlight> highlights;
    for (std::int64_t row = 0; row < document.lineManager->lineCount(); ++row)
        highlights.emplace_back(document.input(document.rangeOfRow(row))).ask(*document.highlighter);
    for (std::size_t i = 0; i < highlights.size(); ++i)
        document.executor->runNext();
    for (std::size_t row = 0; row < highlights.size(); ++row) {
        const AttributedString& line = *highlights[row].input.attributedString;
        const TextRange range = document.rangeOfRow(static_cast<std::int64_t>(row));
        ASSERT_TRUE(highlights[row].result && highlights[row].result->has_value());
        ASSERT_EQ(line, document.highlighted(range)) << "row " << row;
        for (const AttributedString::Run& run : whole.runs(range)) {
            const auto inLine = line.runAt(run.range.location - range.location);
            ASSERT_EQ(inLine.range.location + range.location, run.range.location) << "row " << row;
            ASSERT_EQ(inLine.range.length, run.range.length) << "row " << row;
            ASSERT_EQ(inLine.attributes, run.attributes) << "row " << row;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, HighlightedSamples,
                         ::testing::Values(Sample{"javascript", "JavaScript"}, Sample{"html", "HTML"},
                                           Sample{"css", "CSS"}, Sample{"markdown", "Markdown"},
                                           Sample{"c", "C"}),
                         [](const auto& sample) { return std::string(sample.param.file); });

class RandomHighlights : public ::testing::TestWithParam<std::uint32_t> {};

// The text and the layers change all the time. A highlight has to give what it would have given at once when
// it was asked for, or to be cancelled.
TEST_P(RandomHighlights, AreOfTheMomentWhenTheyWereAskedFor) {
    static constexpr std::array<std::u16string_view, 7> typed{
        u"a", u"\n", u"<b>x</b>", u"<script>let a = /b/;</script>\n", u"</p>", u"\"", u"<!--"};
    RandomSource random(GetParam());
    const std::array budgets{SampleDocument::Budget(0s), SampleDocument::Budget(20us),
                             SampleDocument::Budget()};
    HighlightedDocument document(sampleText("HTML"), "html", budgets[GetParam() % budgets.size()]);
    document.parse();

    struct Asked {
        Highlight highlight;
        AttributedString expected;
        bool isCancelled = false;
    };

    std::deque<Asked> all;
    std::size_t parses = 0;
    for (int step = 0; step < 200; ++step) {
        const std::int64_t row = random.below(document.lineManager->lineCount());
        const TextRange range = document.rangeOfRow(row);
        Asked& asked = all.emplace_back(Highlight(document.input(range)), document.highlighted(range));
        asked.highlight.ask(*document.highlighter);
        if (random.below(4) == 0) {
            document.highlighter->cancel();
            asked.isCancelled = true;
        }
        if (random.below(3) == 0)
            document.replace(random.below(document.stringView->length() + 1), 0, random.anyOf(typed));
        if (random.below(40) == 0) {
            ++parses;
            document.mode->parse(document.stringView->snapshot(), [](bool) {});
        }
        while (random.below(2) == 0 && document.executor->taskCount() > 0)
            document.executor->runNext();
    }
    document.settle();
    while (std::ranges::any_of(all, [](const Asked& asked) { return !asked.highlight.result; }))
        document.executor->runNext();
    for (const Asked& asked : all) {
        if (asked.highlight.result->has_value()) {
            ASSERT_FALSE(asked.isCancelled);
            ASSERT_EQ(*asked.highlight.input.attributedString, asked.expected) << "seed " << GetParam();
        } else {
            ASSERT_TRUE(asked.highlight.hasFailedWith(Error::Cancelled));
            ASSERT_TRUE(asked.isCancelled || parses > 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHighlights, ::testing::Range(0U, 12U));

} // namespace
