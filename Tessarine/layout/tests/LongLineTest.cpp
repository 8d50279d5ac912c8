#include "Tessarine/layout/LineController.h"
#include "Tessarine/layout/tests/DisplayedLine.h"

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

constexpr std::int64_t window = HighlightedWindows::windowLength;

std::u16string repeated(std::u16string_view part, std::int64_t count) {
    std::u16string text;
    for (std::int64_t i = 0; i < count; ++i)
        text += part;
    return text;
}

struct LongLine : ::testing::Test {
    std::int64_t rowsMade() const { return std::exchange(*line->shaper->lineCount, 0); }

    std::vector<TextRange> highlights() const { return std::exchange(line->highlighter->highlighted, {}); }

    void showRow(std::int64_t row, bool asynchronously = false) const {
        line->controller->prepareToDisplayString(InRect{{.y = static_cast<double>(row) * 11, .height = 30}},
                                                 asynchronously);
    }

    double widthOfRow(std::size_t row) const {
        return line->controller->lineFragments().at(row)->scaledSize.width;
    }

    // Rows of four units in a width of 50, one of them bold.
    const std::shared_ptr<DisplayedLine> line = DisplayedLine::create(repeated(u"aab ", 25'000));
};

TEST_F(LongLine, IsHighlightedWhereItShows) {
    showRow(0);
    EXPECT_THAT(highlights(), ElementsAre(TextRange{0, window}));
    EXPECT_LE(rowsMade(), 9);
    EXPECT_EQ(widthOfRow(2), 41);
    showRow(20);
    EXPECT_THAT(highlights(), IsEmpty());
    rowsMade();
    // Two windows meet in front of row 4096.
    showRow(4'095);
    EXPECT_THAT(highlights(), ElementsAre(TextRange{4 * 4'096 - window, 2 * window}));
    showRow(20'000);
    EXPECT_THAT(highlights(), ElementsAre(TextRange{80'000 / window * window, window}));
    EXPECT_EQ(widthOfRow(20'000), 41);
    EXPECT_EQ(widthOfRow(10'000), 40) << "it has never shown";
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
    rowsMade();
    showRow(10'000);
    EXPECT_THAT(highlights(), SizeIs(1));
    EXPECT_EQ(widthOfRow(10'000), 41);
    EXPECT_LT(rowsMade(), window / 4 + 10) << "the window's rows, not all that were there";
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
}

// Of rows that are wider than what shows.
TEST_F(LongLine, IsHighlightedWhereItShowsSideways) {
    line->controller->setConstrainingWidth(10'000);
    line->controller->prepareToDisplayString(InRect{{.x = 5'000, .y = 0, .width = 400, .height = 30}}, false);
    const auto isBold = [&](std::int64_t unit) {
        return line->controller->attributedString()->runAt(unit).attributes.font->traits == FontTraits::bold;
    };
    std::int64_t units = 0;
    for (const TextRange& range : highlights())
        units += range.length;
    EXPECT_LE(units, 3 * 4 * window);
    for (std::size_t row = 0; row < 3; ++row) {
        const LineFragment& shown = *line->controller->lineFragments()[row];
        EXPECT_FALSE(isBold(shown.range.location + 202)) << row;
        for (std::int64_t unit = shown.line->stringIndexForPosition(5'000);
             unit < shown.line->stringIndexForPosition(5'400); ++unit)
            EXPECT_EQ(isBold(unit), line->stringView->characterAt(unit) == u'b') << unit;
    }
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
}

TEST(LongLineOfPairs, HighlightsNoHalfOfACharacter) {
    const auto line = DisplayedLine::create(u"a" + repeated(u"\U0001F44D", 20'000));
    for (int i = 0; i < 2; ++i)
        line->controller->prepareToDisplayString(InRect{{.y = 5'000, .height = 30}}, false);
    ASSERT_THAT(line->highlighter->highlighted, SizeIs(1));
    const TextRange& highlighted = line->highlighter->highlighted.front();
    EXPECT_EQ(highlighted.location % 2, 1);
    EXPECT_EQ(highlighted.limit() % 2, 1);
}

TEST_F(LongLine, KeepsItsRowsInFrontOfAnEdit) {
    showRow(20'000);
    rowsMade();
    highlights();
    const auto kept = line->controller->lineFragments()[4'000];
    line->replace(80'004, 1, u"bbb ");
    showRow(20'000);
    EXPECT_LT(rowsMade(), 30 + window / 4 + 10) << "and the window, which is highlighted again";
    EXPECT_THAT(highlights(), ElementsAre(TextRange{80'000 / window * window, window}));
    EXPECT_EQ(line->rows()[20'001], u"bbb ");
    EXPECT_EQ(line->controller->lineFragments()[4'000], kept);
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
    line->controller->setKern(1);
    showRow(2);
    EXPECT_EQ(line->controller->lineFragments().size(), 5U) << "other settings, other rows";
}

TEST_F(LongLine, GetsItsColoursInTheBackground) {
    showRow(9'000, true);
    EXPECT_THAT(line->highlighter->asked, ElementsAre(TextRange{36'000 / window * window, window}));
    const auto shown = line->controller->lineFragmentControllers({.y = 99'000, .height = 30});
    EXPECT_EQ(widthOfRow(9'000), 40);
    line->highlighter->runPending();
    EXPECT_EQ(widthOfRow(9'000), 41);
    EXPECT_EQ(shown.at(0)->lineFragment()->scaledSize.width, 41);
    EXPECT_EQ(line->heightChanges, 1);
    showRow(9'000, true);
    EXPECT_FALSE(line->highlighter->hasPending());
    line->controller->invalidateSyntaxHighlighting();
    showRow(9'000, true);
    EXPECT_TRUE(line->highlighter->hasPending());
}

TEST_F(LongLine, LosesRowsWhenItsTextGetsNarrower) {
    line->controller->setConstrainingWidth(40);
    showRow(5'000);
    const std::size_t before = line->controller->lineFragments().size();
    line->highlighter->traits = FontTraits::italic;
    line->controller->invalidateSyntaxHighlighting();
    showRow(5'000);
    EXPECT_LT(line->controller->lineFragments().size(), before);
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
    EXPECT_EQ(line->controller->lineFragmentTree().tree().root().nodeTotalCount(),
              line->controller->lineFragments().size());
}

// The width changes before the colours come.
TEST_F(LongLine, SurvivesColoursThatComeWhenItsRowsAreStale) {
    showRow(10, true);
    line->controller->setConstrainingWidth(90);
    line->highlighter->runPending();
    EXPECT_EQ(line->rows()[0], u"aab aab ");
    EXPECT_EQ(line->controller->lineFragmentTree().check(), std::nullopt);
}

TEST_F(LongLine, ForgetsWhatShowedItsRows) {
    showRow(24'000);
    const auto view = std::make_shared<LineFragmentView>();
    const auto first = line->controller->lineFragmentControllers({.height = 5}).at(0);
    first->setLineFragmentView(view);
    std::weak_ptr<LineFragmentController> second =
        line->controller->lineFragmentControllers({.y = 12, .height = 1}).at(0);
    line->controller->lineFragmentControllers({.y = 30, .height = 20'000});
    EXPECT_FALSE(second.expired());
    line->controller->lineFragmentControllers({.y = 30'000, .height = 5});
    EXPECT_TRUE(second.expired());
    EXPECT_EQ(line->controller->lineFragmentControllers({.height = 5}).at(0), first);
}

class RandomLongLine : public ::testing::TestWithParam<unsigned> {};

// Edits, widths and places to look at: rows that show are those of a controller that makes all at once and
// highlights them all.
TEST_P(RandomLongLine, ShowsWhatAWholeOneShows) {
    std::mt19937 random(GetParam());
    const auto below = [&](std::int64_t limit) { return static_cast<std::int64_t>(random() % limit); };
    const auto line = DisplayedLine::create(repeated(u"aab aaa aaaa, aaaaaaaaaa aaaaaaa ", 1'100));
    line->controller->setConstrainingWidth(300);
    line->highlighter->traits = FontTraits::italic; // as wide as the others
    for (int step = 0; step < 12; ++step) {
        const std::int64_t length = line->stringView->length();
        const std::int64_t at = below(length);
        const std::u16string inserted(static_cast<std::size_t>(below(20)), u",b a"[below(4)]);
        line->replace(at, std::min(below(3) * below(20), length - at), inserted);
        if (below(5) == 0) line->controller->setConstrainingWidth(static_cast<double>(200 + below(200)));
        const bool isAsynchronous = below(2) == 0;
        const Rect rect{.y = static_cast<double>(below(15'000)), .height = 200};
        line->controller->prepareToDisplayString(InRect{rect}, isAsynchronous);
        if (isAsynchronous && line->highlighter->hasPending()) line->highlighter->runPending();
        if (step % 3 != 2) continue;
        ASSERT_EQ(line->controller->lineFragmentTree().check(), std::nullopt) << "seed " << GetParam();
        const auto fresh = line->newController(0);
        fresh->setConstrainingWidth(line->controller->constrainingWidth());
        fresh->prepareToDisplayString(InRect{{.height = 1e9}}, false);
        for (std::size_t i = 0; i < line->controller->lineFragments().size(); ++i) {
            const LineFragment& row = *line->controller->lineFragments()[i];
            ASSERT_EQ(row.range, fresh->lineFragments()[i]->range) << "row " << i << " seed " << GetParam();
            ASSERT_EQ(row.yPosition, fresh->lineFragments()[i]->yPosition);
            if (row.maxY() <= rect.minY() || row.yPosition >= rect.maxY()) continue;
            for (std::int64_t unit = row.range.location; unit < row.range.limit(); ++unit)
                ASSERT_EQ(line->controller->attributedString()->runAt(unit).attributes,
                          fresh->attributedString()->runAt(unit).attributes);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomLongLine, ::testing::Range(0U, 6U));

} // namespace
