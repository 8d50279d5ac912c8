#include "Tessarine/syntax/tests/RandomSource.h"
#include "Tessarine/syntax/tests/SampleDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <semaphore>
#include <thread>

using namespace tessarine;
using namespace std::chrono_literals;

namespace {

using Rows = std::vector<std::int64_t>;

constexpr SampleDocument::Budget noTime = 0s;
constexpr SampleDocument::Budget allTime = 1h;

// Holds a parse of the background where it asks for its first injected language, until it is let go.
class Gate : public TreeSitterLanguageProvider {
public:
    std::shared_ptr<const TreeSitterLanguage> treeSitterLanguage(std::string_view name) const override {
        if (std::this_thread::get_id() != m_main && !m_isOpen.exchange(true)) {
            m_reached.release();
            m_passage.acquire();
        }
        return SampleLanguages::shared()->treeSitterLanguage(name);
    }

    void waitUntilReached() const { m_reached.acquire(); }

    void open() const { m_passage.release(); }

private:
    const std::thread::id m_main = std::this_thread::get_id();
    mutable std::atomic<bool> m_isOpen = false;
    mutable std::binary_semaphore m_reached{0};
    mutable std::binary_semaphore m_passage{0};
};

struct GatedDocument {
    explicit GatedDocument(std::u16string_view text, SampleDocument::Budget budget = std::nullopt)
        : document(text, SampleLanguages::shared()->treeSitterLanguage("html"), gate, budget) {}

    std::shared_ptr<const Gate> gate = std::make_shared<const Gate>();
    SampleDocument document;
};

std::u16string pageOf(int scripts) {
    std::u16string text;
    for (int i = 0; i < scripts; ++i)
        text += u"<p>text</p>\n<script>\nlet a = /x/;\nf(a);\n</script>\n";
    return text;
}

TEST(BackgroundParse, OfTwoQuickOnesOnlyTheSecondIsGood) {
    SampleDocument document(pageOf(200), "html");
    std::vector<std::pair<int, bool>> completions;
    for (int i = 0; i < 2; ++i)
        document.mode->parse(document.stringView->snapshot(),
                             [&, i](bool isParsed) { completions.emplace_back(i, isParsed); });
    EXPECT_TRUE(completions.empty());
    document.settle();
    EXPECT_EQ(completions, (std::vector<std::pair<int, bool>>{{0, false}, {1, true}}));
    EXPECT_EQ(document.description(), document.freshDescription());
    EXPECT_EQ(document.mode->operationQueue().name(), "TreeSitterLanguageMode");
}

TEST(BackgroundParse, ThatIsDoneAndNotYetInstalledGivesWayToo) {
    SampleDocument document(pageOf(3), "html");
    for (int i = 0; i < 20; ++i) {
        std::vector<bool> completions;
        const auto ask = [&] {
            document.mode->parse(document.stringView->snapshot(),
                                 [&](bool isParsed) { completions.push_back(isParsed); });
        };
        ask();
        document.executor->waitFor(1);
        if (i % 2 == 0) document.mode->parse(document.stringView->snapshot());
        ask();
        document.settle();
        EXPECT_EQ(completions, (std::vector<bool>{false, true}));
    }
}

TEST(BackgroundParse, OutlivesItsModeAndReportsFalse) {
    SampleDocument document(pageOf(200), "html");
    std::optional<bool> result;
    document.mode->parse(document.stringView->snapshot(), [&](bool isParsed) { result = isParsed; });
    document.mode.reset();
    document.executor->runNext();
    EXPECT_EQ(result, false);
}

TEST(BackgroundParse, AParseHereAndNowEndsIt) {
    SampleDocument document(pageOf(20), "html");
    std::optional<bool> result;
    document.mode->parse(document.stringView->snapshot(), [&](bool isParsed) { result = isParsed; });
    document.parse();
    document.executor->runNext();
    EXPECT_EQ(result, false);
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(BackgroundParse, IsBroughtUpByTheEditsMadeMeanwhile) {
    for (const auto budget : {SampleDocument::Budget(), noTime, allTime}) {
        GatedDocument gated(pageOf(30), budget);
        SampleDocument& document = gated.document;
        std::optional<bool> result;
        document.mode->parse(document.stringView->snapshot(), [&](bool isParsed) { result = isParsed; });
        gated.gate->waitUntilReached();
        EXPECT_EQ(document.replace(0, 0, u"<b>\n</b>\n"), (Rows{0, 1, 2}));
        document.insertBefore(u"f(a)", u"/*");
        document.replace(document.stringView->length() - 20, 15, u"");
        gated.gate->open();
        document.settle();
        EXPECT_EQ(result, true);
        EXPECT_EQ(document.description(), document.freshDescription());
        EXPECT_TRUE(std::ranges::includes(document.reparsedRows(), Rows{0, 1, 2, 5}));
    }
}

TEST(ReparseBudget, LeavesAnEditThatFitsOnTheThreadThatMakesIt) {
    SampleDocument document(pageOf(3), "html", allTime);
    document.parse();
    document.replace(0, 0, u"<b>");
    EXPECT_FALSE(document.mode->hasBackgroundParse());
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(ReparseBudget, OtherwiseOldTreesServeUntilTheParseInTheBackgroundIsDone) {
    SampleDocument document(u"int a;\nint b;\nint c; // */\nint d;\n", "c", noTime);
    document.parse();
    EXPECT_EQ(document.insertBefore(u"int b", u"/*"), (Rows{1}));
    EXPECT_TRUE(document.mode->hasBackgroundParse());
    const auto captures = document.mode->captures({18, 14});
    ASSERT_EQ(captures.size(), 2);
    EXPECT_EQ(captures[0].name(), "type");
    EXPECT_EQ(captures[1].byteRange(), (ByteRange{26, 2}));
    EXPECT_EQ(document.mode->syntaxNode({3, 4})->type, "identifier");
    document.settle();
    EXPECT_EQ(document.reparsedRows(), (Rows{1, 2}));
    EXPECT_EQ(document.mode->captures({18, 14}).front().name(), "comment");
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(ReparseBudget, ServesTheChildrenThatAnEditMoved) {
    SampleDocument document(pageOf(10), "html", noTime);
    document.parse();
    document.replace(0, 11, u"");
    document.insertBefore(u"f(a)", u"x;\n");
    const auto last = static_cast<std::int64_t>(document.stringView->string().rfind(u"f(a)"));
    const auto captures = document.mode->captures({2 * last, 2});
    EXPECT_TRUE(
        std::ranges::any_of(captures, [](const auto& capture) { return capture.name() == "function"; }));
    const auto line = document.lineManager->linePosition(last).value();
    EXPECT_EQ(document.mode->syntaxNode(line)->type, "identifier");
    document.settle();
    EXPECT_EQ(document.description(), document.freshDescription());
}

// Typing without a rest: the parse is begun anew three times, then it is left to finish.
TEST(ReparseBudget, TypingCannotKeepTheParseFromItsEnd) {
    GatedDocument gated(pageOf(3), noTime);
    SampleDocument& document = gated.document;
    document.parse();
    document.replace(0, 0, u"<script>a</script>");
    gated.gate->waitUntilReached();
    for (int i = 0; i < 9; ++i)
        document.replace(8, 0, u"b");
    gated.gate->open();
    document.executor->waitFor(1 + TreeSitterInternalLanguageMode::mostRestarts);
    EXPECT_EQ(document.mode->layers().edits().size(), 10);
    for (int i = 0; i <= TreeSitterInternalLanguageMode::mostRestarts; ++i)
        document.executor->runNext();
    EXPECT_EQ(document.mode->layers().edits().size(), 6);
    EXPECT_TRUE(document.mode->hasBackgroundParse());
    document.settle();
    EXPECT_EQ(document.description(), document.freshDescription());
}

TEST(ReparseBudget, TypingRightBehindAWordReachesItsColour) {
    SampleDocument document(u"int ab;\n", "c", noTime);
    document.parse();
    document.replace(6, 0, u"c");
    document.settle();
    EXPECT_EQ(document.reparsedRows(), (Rows{0}));
    EXPECT_EQ(document.mode->captures({8, 6}).front().byteRange(), (ByteRange{8, 6}));
}

class RandomEditsWithBackground : public ::testing::TestWithParam<std::uint32_t> {};

// Edits, whole parses and completions in any order and at any moment of what goes on in the background.
TEST_P(RandomEditsWithBackground, EndInStepWithTheText) {
    static constexpr std::array<std::u16string_view, 9> typed{u"a",
                                                              u"\n",
                                                              u"<b>x</b>",
                                                              u"<script>let a = /b/;</script>\n",
                                                              u"</p>",
                                                              u" ",
                                                              u"<style>p { }</style>",
                                                              u"",
                                                              u"\u00e9"};
    RandomSource random(GetParam());
    const std::array budgets{noTime, SampleDocument::Budget(20us), SampleDocument::Budget(), allTime};
    SampleDocument document(pageOf(40), "html", budgets[GetParam() % budgets.size()]);
    int completed = 0;
    int asked = 0;
    for (int step = 0; step < 150; ++step) {
        const std::int64_t length = document.stringView->length();
        const std::int64_t location = random.below(length + 1);
        document.replace(location, random.below(std::min<std::int64_t>(length - location, 4) + 1),
                         random.anyOf(typed));
        (void)document.mode->captures({2 * random.below(length), 40});
        if (random.below(12) == 0) {
            ++asked;
            document.mode->parse(document.stringView->snapshot(), [&](bool) { ++completed; });
        }
        if (random.below(3) == 0 && document.executor->taskCount() > 0) document.executor->runNext();
        if (random.below(10) == 0) document.settle();
    }
    document.settle();
    EXPECT_EQ(completed, asked);
    EXPECT_TRUE(document.mode->layers().edits().empty());
    if (document.isBroken()) return;
    EXPECT_EQ(document.description(), document.freshDescription()) << "seed " << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEditsWithBackground, ::testing::Range(0U, 12U));

} // namespace
