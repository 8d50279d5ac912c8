#include "Tessarine/layout/manager/tests/LaidOutText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::u16string repeated(std::u16string_view text, int count) {
    std::u16string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(LayoutManager, OpensAMillionLinesByLayingOutTheScreen) {
    LaidOutText text(repeated(u"line\n", 1'000'000), {.width = 100, .height = 660});
    EXPECT_EQ(text.shownRows().size(), 60U);
    EXPECT_EQ(*text.shaper->lineCount, 60);
    EXPECT_EQ(text.layout().lineControllerCount(), 60U);
    EXPECT_EQ(text.scrollView->contentSize(), (Size{.width = 100, .height = 11'000'011}));
    text.scrollTo(5'500'000);
    EXPECT_LE(*text.shaper->lineCount, 122);
    EXPECT_EQ(text.shownRows().front().frame, (Rect{0, 0, 40, 11}));
    text.scrollTo(0);
    EXPECT_LE(*text.shaper->lineCount, 122) << "rows are kept";
    EXPECT_EQ(text.layout().rows().views().queuedViewCount(), 60U);
}

TEST(LayoutManager, PlacesRowsBehindTheGutterAndTheInset) {
    LaidOutText text(repeated(u"abcdefghij", 3) + u"\n\nxy", {.width = 150, .height = 100});
    text.layout().setShowLineNumbers(true);
    text.layout().setTextContainerInset({.top = 7, .left = 4, .bottom = 5, .right = 8});
    text.layout().setLineHeightMultiplier(2);
    text.layout().layoutIfNeeded();
    // One digit and the paddings twice, then the inset.
    EXPECT_EQ(text.layout().geometry().gutterWidth(), 22);
    EXPECT_EQ(text.layout().geometry().leadingLineSpacing(), 26);
    EXPECT_EQ(text.layout().geometry().constrainingLineWidth(), 116);
    EXPECT_THAT(text.shownRows(),
                ElementsAre(ShownRow{{26, 7, 110, 22}, {0, 11}}, ShownRow{{26, 29, 110, 22}, {11, 11}},
                            ShownRow{{26, 51, 80, 22}, {22, 9}}, //
                            ShownRow{{26, 73, 0, 22}, {0, 1}}, ShownRow{{26, 95, 20, 22}, {0, 2}}));
    EXPECT_THAT(text.shownNumbers(), ElementsAre(u"1", u"2", u"3"));
    EXPECT_EQ(text.scrollView->contentSize(), (Size{.width = 150, .height = 110 + 12}));
    std::vector<Rect> numbers;
    for (const auto& [id, view] : text.layout().gutter().views().visibleViews())
        numbers.push_back(view->frame());
    // A number stands in the middle of its row, also beside a wrapped line.
    EXPECT_THAT(numbers, ::testing::UnorderedElementsAre(Rect{3, 12.5, 16, 11}, Rect{3, 78.5, 16, 11},
                                                         Rect{3, 100.5, 16, 11}));
    EXPECT_EQ(text.fault(), std::nullopt);
}

TEST(LayoutManager, WidensTheGutterWithTheDigitsOfTheLineCount) {
    LaidOutText text(repeated(u"\n", 98));
    text.layout().setShowLineNumbers(true);
    text.layout().layoutIfNeeded();
    EXPECT_EQ(text.layout().geometry().gutterWidth(), 32);
    EXPECT_EQ(text.delegate->gutterWidths, 1);
    text.edit({0, 0}, u"\n");
    EXPECT_EQ(text.layout().geometry().gutterWidth(), 42);
    EXPECT_EQ(text.delegate->gutterWidths, 2);
    const int measured = text.measurer->measured;
    text.edit({98, 0}, u"\n");
    EXPECT_EQ(text.lines().lineCount(), 101);
    EXPECT_EQ(text.measurer->measured, measured);
    EXPECT_EQ(text.delegate->gutterWidths, 2);
}

TEST(LayoutManager, IsAsWideAsTheWidestKnownLineWithoutWrapping) {
    LaidOutText text(repeated(u"abcdefghijklmno\n", 20) + repeated(u"w", 40) + u"\nx");
    text.layout().setLineWrappingEnabled(false);
    text.layout().setTextContainerInset({.left = 4, .right = 8.5});
    text.layout().layoutIfNeeded();
    EXPECT_EQ(text.layout().geometry().constrainingLineWidth(), 10'000);
    EXPECT_EQ(text.scrollView->contentSize().width, 412) << "400 of the longest line, 12.5 around it";
    text.edit({0, 0}, std::u16string(45, u'a'));
    EXPECT_EQ(text.scrollView->contentSize().width, 612);
    text.edit({0, 45}, u"");
    EXPECT_EQ(text.scrollView->contentSize().width, 412);
    text.edit({325, 30}, u"");
    text.scrollTo(20 * 11 - 50);
    EXPECT_EQ(text.scrollView->contentSize().width, 162) << "the widest line has shrunk";
    text.layout().setLineWrappingEnabled(true);
    text.layout().layoutIfNeeded();
    EXPECT_EQ(text.scrollView->contentSize().width, 100);
    EXPECT_EQ(text.fault(), std::nullopt);
}

// The line above turns out to have three rows where one was estimated.
TEST(LayoutManager, KeepsWhatShowsInPlaceWhenScrollingUpPastHigherLines) {
    LaidOutText text(repeated(repeated(u"x", 24) + u"\n", 100));
    text.scrollTo(550);
    ASSERT_EQ(text.offset(), 550 - 0);
    const auto before = text.shownRows();
    ASSERT_EQ(before.front(), (ShownRow{{0, 0, 100, 11}, {0, 10}}));
    text.scrollTo(545);
    EXPECT_EQ(text.offset(), 567);
    const auto after = text.shownRows();
    EXPECT_EQ(after[0], (ShownRow{{0, -6, 40, 11}, {20, 5}}));
    EXPECT_EQ(after[1], (ShownRow{{0, 5, 100, 11}, {0, 10}}));
    EXPECT_EQ(text.fault(), std::nullopt);
}

// Rows further down in the line at the top change its estimated height, but nothing that shows.
TEST(LayoutManager, ScrollsThroughOneLongLineWithoutAJump) {
    LaidOutText text(repeated(u"some words of any length, ", 400) + u"\nend");
    for (double y = 3; y < 3'000; y += 37) {
        text.scrollTo(y);
        ASSERT_EQ(text.offset(), y);
        ASSERT_EQ(text.fault(), std::nullopt) << y;
    }
}

TEST(LayoutManager, KeepsTheFirstRowsTextAtTheTopWhenTheWidthChanges) {
    LaidOutText text(repeated(repeated(u"x", 99) + u"\n", 20));
    text.scrollTo(110);
    text.scrollTo(110 + 22 + 4);
    ASSERT_EQ(text.shownRows().front(), (ShownRow{{0, -4, 100, 11}, {20, 10}}));
    text.resize({.width = 50, .height = 110});
    EXPECT_EQ(text.shownRows().front(), (ShownRow{{0, -4, 50, 11}, {20, 5}}));
    text.resize({.width = 300, .height = 110});
    EXPECT_EQ(text.shownRows().front(), (ShownRow{{0, -4, 300, 11}, {0, 30}})) << "the row that holds it";
    EXPECT_EQ(text.fault(), std::nullopt);
}

TEST(LayoutManager, LaysOutNothingWithoutRoom) {
    LaidOutText text(u"text", {.width = 100, .height = 0});
    EXPECT_THAT(text.shownRows(), IsEmpty());
    text.resize({.width = 10, .height = 50});
    text.layout().setShowLineNumbers(true);
    text.layout().layoutIfNeeded();
    EXPECT_THAT(text.shownRows(), IsEmpty()) << "the gutter takes all of the width";
    text.resize({.width = 100, .height = 50});
    EXPECT_EQ(text.shownRows().size(), 1U);
    text.scrollTo(1'000);
    EXPECT_THAT(text.shownRows(), IsEmpty()) << "below the text";
    text.scrollTo(-20);
    EXPECT_EQ(text.shownRows(), (std::vector{ShownRow{{22, 20, 40, 11}, {0, 4}}}));
}

TEST(LayoutManager, ShowsOneNumberAndACaretForAnEmptyText) {
    LaidOutText text(u"", {.width = 100, .height = 110}, 15);
    text.layout().setShowLineNumbers(true);
    text.layout().layoutIfNeeded();
    EXPECT_THAT(text.shownNumbers(), ElementsAre(u"1"));
    EXPECT_THAT(text.shownRows(), IsEmpty());
    EXPECT_EQ(text.layout().caretRect(0), (Rect{22, 0, 3, 15}));
    EXPECT_EQ(text.layout().closestIndex({50, 50}), 0);
    EXPECT_EQ(text.layout().firstRect({0, 0}), (Rect{22, 0, 0, 15}));
    EXPECT_EQ(text.scrollView->contentSize().height, 15);
}

} // namespace
