#include "Tessarine/layout/LineController.h"

#include "Tessarine/layout/tests/DisplayedLine.h"
#include "Tessarine/layout/tests/FixedMeasurer.h"
#include "Tessarine/layout/tests/RecordingContext.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

using InRect = LineController::InRect;
using ToLocation = LineController::ToLocation;

TEST(LineController, MakesTheRowsThatShow) {
    const auto line = DisplayedLine::create(u"xx\naaa bbb ccc ddd\nyy", 1);
    line->controller->prepareToDisplayString(InRect{{.y = 5, .height = 15}}, false);
    EXPECT_THAT(line->rows(), ElementsAre(u"aaa ", u"bbb "));
    line->controller->prepareToDisplayString(ToLocation{8}, false);
    EXPECT_THAT(line->rows(), ElementsAre(u"aaa ", u"bbb ", u"ccc ", u"ddd\n"));
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
    EXPECT_EQ(line->controller->attributedString()->runAt(0).attributes.defaultTabInterval, 10);
    EXPECT_THAT(line->highlighter->highlighted, ElementsAre(TextRange{3, 16}));
}

TEST(LineController, GuessesItsHeightUntilAllRowsAreMade) {
    const auto line = DisplayedLine::create(u"aaa bbb ccc ddd eee");
    LineController& controller = *line->controller;
    EXPECT_EQ(controller.lineHeight(), 15);
    controller.setLineFragmentHeightMultiplier(2);
    EXPECT_EQ(controller.lineHeight(), 30);
    controller.setEstimatedLineFragmentHeight(20);
    EXPECT_EQ(controller.lineHeight(), 40);
    controller.prepareToDisplayString(InRect{{.height = 30}}, false);
    // Two rows of 11 twice, and 11 units more at 4 a row.
    EXPECT_EQ(controller.lineHeight(), 44 + 2 * 40);
    line->prepareAll();
    EXPECT_EQ(controller.lineHeight(), 5 * 22);
    controller.setLineFragmentHeightMultiplier(1);
    EXPECT_EQ(controller.lineHeight(), 110) << "the rows are those of before until they are made again";
    line->prepareAll();
    EXPECT_EQ(controller.lineHeight(), 55);
}

TEST(LineController, OfAnEmptyLineHasNoRows) {
    for (const std::int64_t row : {0, 1}) {
        const auto line = DisplayedLine::create(u"\n", row);
        line->controller->setLineFragmentHeightMultiplier(2);
        line->prepareAll();
        if (row == 0) {
            EXPECT_THAT(line->rows(), ElementsAre(u"\n"));
            continue;
        }
        EXPECT_THAT(line->rows(), IsEmpty());
        EXPECT_EQ(line->controller->attributedString(), nullptr);
        EXPECT_EQ(line->controller->lineHeight(), 30);
        EXPECT_EQ(line->controller->caretRect(0), (Rect{0, 7.5, 3, 15}));
        EXPECT_EQ(line->controller->firstRect({0, 0}), (Rect{0, 0, 0, 30}));
        EXPECT_EQ(line->controller->closestIndex({30, 5}), 0);
        EXPECT_THAT(line->controller->selectionRects({0, 0}), IsEmpty());
        EXPECT_THAT(line->highlighter->highlighted, IsEmpty());
    }
}

TEST(LineController, MakesNothingWithoutAWidth) {
    const auto line = DisplayedLine::create(u"aaa bbb");
    line->prepareAll();
    line->controller->setConstrainingWidth(0);
    line->prepareAll();
    EXPECT_THAT(line->rows(), IsEmpty());
    EXPECT_EQ(line->controller->lineHeight(), 15);
    EXPECT_THAT(line->controller->lineFragmentControllers({.height = 100}), IsEmpty());
}

TEST(LineController, RunsOnlyTheStagesThatHaveTo) {
    const auto line = DisplayedLine::create(u"aaa abb");
    LineController& controller = *line->controller;
    const auto rowsMade = [&] { return std::exchange(*line->shaper->lineCount, 0); };
    const auto highlights = [&] { return std::exchange(line->highlighter->highlighted, {}); };
    line->prepareAll();
    EXPECT_EQ(rowsMade(), 2);
    EXPECT_THAT(highlights(), SizeIs(1));
    const auto string = controller.attributedString();

    line->prepareAll();
    EXPECT_EQ(rowsMade(), 0);
    EXPECT_THAT(highlights(), IsEmpty());

    controller.setConstrainingWidth(40);
    controller.setConstrainingWidth(40);
    line->prepareAll();
    EXPECT_EQ(rowsMade(), 2);
    EXPECT_THAT(highlights(), IsEmpty());
    EXPECT_EQ(controller.attributedString(), string);

    controller.invalidateSyntaxHighlighting();
    line->prepareAll();
    EXPECT_EQ(rowsMade(), 2);
    EXPECT_THAT(highlights(), SizeIs(1));

    controller.setKern(1);
    EXPECT_EQ(line->highlighter->kern(), 1);
    controller.setTabWidth(33);
    const auto theme = std::make_shared<DefaultTheme>();
    controller.setTheme(theme);
    EXPECT_EQ(line->highlighter->theme(), theme);
    EXPECT_EQ(line->rows().size(), 2U) << "what there is stays until it is prepared";
    line->prepareAll();
    EXPECT_EQ(controller.attributedString()->runAt(0).attributes.kern, 1);
    EXPECT_EQ(controller.attributedString()->runAt(0).attributes.defaultTabInterval, 33);
    EXPECT_GT(rowsMade(), 0);
    EXPECT_THAT(highlights(), SizeIs(1));
    controller.setKern(1);
    controller.setTabWidth(33);
    controller.setTheme(theme);
    line->prepareAll();
    EXPECT_EQ(rowsMade(), 0);

    EXPECT_EQ(line->highlightersMade, 1);
    controller.invalidateSyntaxHighlighter();
    line->highlighter->hasSyntax = false;
    line->prepareAll();
    EXPECT_EQ(line->highlightersMade, 2);
    EXPECT_GT(rowsMade(), 0);
    EXPECT_THAT(highlights(), IsEmpty());
    EXPECT_FALSE(controller.attributedString()->runAt(5).attributes.font->traits.contains(FontTraits::bold));

    line->replace(0, 0, u"bb ");
    line->prepareAll();
    EXPECT_THAT(line->rows(), ElementsAre(u"bb ", u"aaa", u" ab", u"b"));
}

TEST(LineController, HighlightsAnewFromTheDefaultAttributes) {
    const auto line = DisplayedLine::create(u"ab");
    line->prepareAll();
    EXPECT_EQ(line->controller->attributedString()->runs({0, 2}).size(), 2U);
    line->highlighter->traits = FontTraits::italic;
    line->controller->invalidateSyntaxHighlighting();
    line->prepareAll();
    EXPECT_EQ(line->controller->attributedString()->runAt(1).attributes.font->traits, FontTraits::italic);
}

TEST(LineController, WithoutADelegateHasTheThemesText) {
    const auto line = DisplayedLine::create(u"ab");
    line->controller->setDelegate({});
    line->controller->setKern(2);
    line->prepareAll();
    const TextAttributes& attributes = line->controller->attributedString()->runAt(0).attributes;
    EXPECT_EQ(attributes.font, DefaultTheme().font());
    EXPECT_EQ(attributes.kern, 2);
}

struct BackgroundHighlighting : ::testing::Test {
    void prepare(std::u16string_view text) {
        line = DisplayedLine::create(text);
        line->prepareAll(true);
    }

    std::shared_ptr<DisplayedLine> line;
};

TEST_F(BackgroundHighlighting, LandsOnRowsThatShow) {
    prepare(u"aaa bbb ccc");
    EXPECT_EQ(line->controller->maximumLineWidth(), 40);
    const auto controllers = line->controller->lineFragmentControllers({.height = 100});
    ASSERT_THAT(controllers, SizeIs(3));
    const auto view = std::make_shared<LineFragmentView>();
    controllers[1]->setLineFragmentView(view);
    view->didDisplay();
    const auto before = line->controller->lineFragments();
    line->highlighter->runPending();
    EXPECT_EQ(line->controller->maximumLineWidth(), 43);
    EXPECT_EQ(line->heightChanges, 1);
    EXPECT_TRUE(view->needsDisplay());
    EXPECT_NE(controllers[1]->lineFragment(), before[1]);
    EXPECT_EQ(controllers[1]->lineFragment(), line->controller->lineFragments()[1]);
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
    line->prepareAll(true);
    EXPECT_THAT(line->highlighter->asked, SizeIs(1));
}

TEST_F(BackgroundHighlighting, TellsOfNothingIfTheLineIsAsLargeAsBefore) {
    prepare(u"aaaa bbb ccc");
    line->highlighter->runPending();
    EXPECT_EQ(line->controller->maximumLineWidth(), 50);
    EXPECT_EQ(line->heightChanges, 0);
    prepare(u"aaa bbbb ccc"); // as wide, but a row more
    line->highlighter->runPending();
    EXPECT_EQ(line->controller->maximumLineWidth(), 44);
    EXPECT_EQ(line->heightChanges, 1);
}

// Only so far as rows had been made.
TEST_F(BackgroundHighlighting, MakesNoRowsThatThereWereNot) {
    line = DisplayedLine::create(u"aaa bbb ccc ddd");
    line->controller->prepareToDisplayString(InRect{{.height = 12}}, true);
    line->highlighter->runPending();
    EXPECT_THAT(line->rows(), ElementsAre(u"aaa ", u"bbb "));
}

TEST_F(BackgroundHighlighting, IsAskedForOnceAndAgainIfItIsCalledOff) {
    prepare(u"abb");
    line->prepareAll(true);
    EXPECT_EQ(line->highlighter->cancelled, 0);
    EXPECT_THAT(line->highlighter->asked, SizeIs(1));
    line->controller->didLeaveScreen();
    EXPECT_EQ(line->highlighter->cancelled, 1);
    line->prepareAll(true);
    EXPECT_THAT(line->highlighter->asked, SizeIs(2));
    line->highlighter->cancel();
    EXPECT_FALSE(
        line->controller->attributedString()->runAt(1).attributes.font->traits.contains(FontTraits::bold));
    line->prepareAll(true);
    line->highlighter->runPending();
    EXPECT_TRUE(
        line->controller->attributedString()->runAt(1).attributes.font->traits.contains(FontTraits::bold));
}

TEST_F(BackgroundHighlighting, DoesNotOutliveWhatItIsOf) {
    const auto isCalledOffBy = [&](auto change) {
        prepare(u"abb");
        change(*line->controller);
        return !line->highlighter->hasPending();
    };
    EXPECT_TRUE(isCalledOffBy([](LineController& controller) { controller.invalidateString(); }));
    EXPECT_TRUE(isCalledOffBy([](LineController& controller) { controller.invalidateSyntaxHighlighting(); }));
    EXPECT_TRUE(isCalledOffBy([](LineController& controller) { controller.invalidateSyntaxHighlighter(); }));
    EXPECT_TRUE(isCalledOffBy([](LineController& controller) { controller.setKern(3); }));
    EXPECT_TRUE(isCalledOffBy([](LineController& controller) { controller.caretRect(1); }));
    EXPECT_FALSE(isCalledOffBy([](LineController& controller) { controller.setConstrainingWidth(30); }));
    prepare(u"abb");
    line->controller = nullptr;
    line->highlighter->runPending();
    EXPECT_EQ(line->heightChanges, 0);
}

TEST(LineController, KeepsWhatShowsARow) {
    const auto line = DisplayedLine::create(u"xx\naaa bbb ccc", 1);
    line->prepareAll();
    // The rows are counted from the document's first line, which is 12 high.
    const auto controllers = line->controller->lineFragmentControllers({.y = 24, .height = 12});
    ASSERT_THAT(controllers, SizeIs(2));
    EXPECT_EQ(controllers[0]->lineFragment(), line->controller->lineFragments()[1]);
    EXPECT_EQ(line->controller->lineFragmentControllers({.y = 24, .height = 12}), controllers);
    EXPECT_THAT(line->controller->lineFragmentControllers({.y = 24, .height = -9}), IsEmpty());
    line->controller->setConstrainingWidth(60);
    line->prepareAll();
    EXPECT_EQ(line->controller->lineFragmentControllers({.y = 24, .height = 12}), controllers);
    EXPECT_EQ(controllers[0]->lineFragment(), line->controller->lineFragments()[1]);
    line->replace(3, 1, u"");
    line->prepareAll();
    EXPECT_NE(line->controller->lineFragmentControllers({.y = 24, .height = 12}).at(0), controllers[0]);
}

TEST(LineController, MarksWhatAnInputMethodHasNotSettled) {
    const auto line = DisplayedLine::create(u"aaa bbb ccc");
    line->prepareAll();
    auto controllers = line->controller->lineFragmentControllers({.height = 12});
    line->controller->setMarkedTextOnLineFragments(TextRange{2, 4});
    controllers = line->controller->lineFragmentControllers({.height = 100});
    EXPECT_EQ(controllers[0]->markedRange(), (TextRange{2, 2}));
    EXPECT_EQ(controllers[1]->markedRange(), (TextRange{4, 2}));
    EXPECT_EQ(controllers[2]->markedRange(), std::nullopt);
    EXPECT_EQ(controllers[2]->renderer().markedTextBackgroundColor(),
              DefaultTheme().markedTextBackgroundColor());
    line->controller->setMarkedTextOnLineFragments(std::nullopt);
    EXPECT_EQ(controllers[0]->markedRange(), std::nullopt);
}

TEST(LineController, GivesTheTextOfARowForItsSigns) {
    const auto line = DisplayedLine::create(u"aaa bbb\n");
    line->prepareAll();
    const auto row = line->controller->lineFragmentControllers({.y = 12, .height = 1}).at(0);
    EXPECT_EQ(line->controller->string(*row), u"bbb\n");
    line->stringView->replaceCharacters(6, 2, u"");
    EXPECT_EQ(line->controller->string(*row), std::nullopt);
}

TEST(LineController, KnowsWhereItsTextIs) {
    const auto line = DisplayedLine::create(u"aaa bbb ccc");
    line->highlighter->hasSyntax = false;
    LineController& controller = *line->controller;
    controller.setLineFragmentHeightMultiplier(2);
    EXPECT_EQ(controller.caretRect(2), (Rect{20, 5.5, 3, 11}));
    EXPECT_EQ(controller.lineFragments().size(), 2U);
    EXPECT_EQ(controller.caretRect(4), (Rect{40, 5.5, 3, 11}));
    EXPECT_EQ(controller.caretRect(6), (Rect{20, 27.5, 3, 11}));
    EXPECT_EQ(controller.caretRect(11), (Rect{30, 49.5, 3, 11}));
    EXPECT_EQ(controller.caretRect(12), (Rect{0, 7.5, 3, 15}));
    EXPECT_EQ(controller.firstRect({1, 100}), (Rect{10, 0, 30, 22}));
    EXPECT_EQ(controller.firstRect({1, 2}), (Rect{10, 0, 20, 22}));
    EXPECT_EQ(controller.firstRect({4, 2}), (Rect{40, 0, 0, 22})) << "as if the rows counted from 0";
    EXPECT_EQ(controller.firstRect({5, 2}), (Rect{0, 0, 0, 30}));
    EXPECT_EQ(controller.firstRect({-1, 2}), (Rect{0, 0, 0, 30}));
    EXPECT_EQ(controller.closestIndex({14, 22}), 1);
    EXPECT_EQ(controller.closestIndex({16, 23}), 6);
    EXPECT_EQ(controller.closestIndex({16, -5}), 2);
    EXPECT_EQ(controller.closestIndex({1'000, 1'000}), 11);
    EXPECT_THAT(controller.selectionRects({2, 7}),
                ElementsAre(Rect{20, 0, 20, 22}, Rect{0, 22, 40, 22}, Rect{0, 44, 10, 22}));
    EXPECT_THAT(controller.selectionRects({4, 4}), ElementsAre(Rect{0, 22, 40, 22}));
}

// A point is looked for no further than it lies.
TEST(LineController, MakesNoMoreRowsThanAPointNeeds) {
    const auto line = DisplayedLine::create(u"aaa bbb ccc ddd eee");
    EXPECT_EQ(line->controller->closestIndex({0, 0}), 0);
    EXPECT_EQ(line->controller->lineFragments().size(), 1U);
}

class RandomDisplay : public ::testing::TestWithParam<unsigned> {
protected:
    std::int64_t below(std::int64_t limit) { return static_cast<std::int64_t>(m_random() % limit); }

    std::u16string text() {
        static constexpr std::u16string_view units = u"aabbc  ,\t\u6F22";
        std::u16string made;
        for (std::int64_t length = below(40); length > 0; --length)
            made += units[m_random() % units.size()];
        return made;
    }

    LineController::TypesetAmount amount(const DisplayedLine& line) {
        if (below(2) == 0) return ToLocation{below(line.controller->line().value() + 2)};
        const double y = static_cast<double>(below(100));
        return InRect{{.y = y, .height = static_cast<double>(below(60))}};
    }

    static void change(LineController& controller, std::int64_t what, std::int64_t how) {
        switch (what) {
        case 0:
            controller.setConstrainingWidth(static_cast<double>(how * 7));
            break;
        case 1:
            controller.setKern(static_cast<double>(how % 3));
            break;
        case 2:
            controller.setTabWidth(static_cast<double>(10 + how));
            break;
        case 3:
            controller.setLineFragmentHeightMultiplier(static_cast<double>(1 + how % 2));
            break;
        default:
            break;
        }
    }

    std::mt19937 m_random{GetParam()};
};

// Whatever has happened, what has been made is what one who comes anew makes.
TEST_P(RandomDisplay, IsThatOfAControllerThatComesAnew) {
    const auto line = DisplayedLine::create(u"xx\naaa", 1);
    for (int step = 0; step < 200; ++step) {
        LineController& controller = *line->controller;
        switch (below(6)) {
        case 0: {
            const std::int64_t start = line->lineManager->lineAtRow(1).location();
            const std::int64_t length = controller.line().value();
            const std::int64_t at = below(length + 1);
            line->replace(start + at, below(length - at + 1), text());
            break;
        }
        case 1: {
            const std::int64_t what = below(5);
            change(controller, what, below(30));
            break;
        }
        case 2:
            controller.invalidateSyntaxHighlighting();
            break;
        case 3:
            if (line->highlighter->hasPending()) line->highlighter->runPending();
            break;
        default:
            controller.prepareToDisplayString(amount(*line), below(2) == 0);
        }
        ASSERT_EQ(controller.lineFragmentTree().check(), std::nullopt) << "seed " << GetParam();
        ASSERT_EQ(controller.lineFragmentTree().tree().root().nodeTotalCount(),
                  std::max<std::size_t>(controller.lineFragments().size(), 1));

        const auto last = amount(*line);
        controller.prepareToDisplayString(last, false);
        const auto fresh = line->newController(1);
        fresh->setConstrainingWidth(controller.constrainingWidth());
        fresh->setKern(controller.kern());
        fresh->setTabWidth(controller.tabWidth());
        fresh->setLineFragmentHeightMultiplier(controller.lineFragmentHeightMultiplier());
        fresh->prepareToDisplayString(InRect{{.height = 1e9}}, false);
        const LineFragments& rows = controller.lineFragments();
        ASSERT_LE(rows.size(), fresh->lineFragments().size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ASSERT_EQ(rows[i]->range, fresh->lineFragments()[i]->range) << "seed " << GetParam();
            ASSERT_EQ(rows[i]->scaledSize, fresh->lineFragments()[i]->scaledSize);
            ASSERT_EQ(rows[i]->yPosition, fresh->lineFragments()[i]->yPosition);
        }
        for (const auto& shown : controller.lineFragmentControllers({.height = 1'000}))
            ASSERT_EQ(shown->lineFragment(), rows[static_cast<std::size_t>(shown->lineFragment()->index)]);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDisplay, ::testing::Range(0U, 12U));

} // namespace
