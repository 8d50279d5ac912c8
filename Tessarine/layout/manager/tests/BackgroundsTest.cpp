// What lies behind the text: selected lines and highlighted ranges.

#include "Tessarine/layout/manager/tests/LaidOutText.h"
#include "Tessarine/syntax/PlainTextInternalLanguageMode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

constexpr Color yellow{RGBAColor::ofHex(0xFFFF00)};

struct LineSelectionTest : ::testing::Test {
    LineSelectionTest() {
        layout().setShowLineNumbers(true);
        layout().setEditing(true);
        layout().setLineSelectionDisplayType(LineSelectionDisplayType::line);
    }

    LayoutManager& layout() { return text.layout(); }

    // Whether it shows, and from where to where.
    std::optional<std::pair<double, double>> band() {
        layout().layoutIfNeeded();
        const View& behindText = *layout().lineSelection().lineSelectionBackgroundView();
        const View& inGutter = *layout().lineSelection().gutterSelectionBackgroundView();
        EXPECT_EQ(behindText.isHidden(), inGutter.isHidden());
        if (behindText.isHidden()) return std::nullopt;
        EXPECT_EQ(behindText.frame().y, inGutter.frame().y);
        EXPECT_EQ(behindText.frame().height, inGutter.frame().height);
        EXPECT_EQ(behindText.frame().width, 122);
        EXPECT_EQ(inGutter.frame().width, 22);
        return std::pair(behindText.frame().minY(), behindText.frame().maxY());
    }

    using Band = std::optional<std::pair<double, double>>;

    // Rows of ten units: three, one, three.
    LaidOutText text{u"abcdefghijklmnopqrstuvwxyz\nab\nabcdefghijklmnopqrstuvwxyz",
                     {.width = 122, .height = 110}};
};

TEST_F(LineSelectionTest, ShowsWhereLinesAreSelectedInAnEditor) {
    EXPECT_EQ(band(), std::nullopt);
    layout().setSelectedRange(TextRange{28, 0});
    EXPECT_EQ(band(), Band({33, 44}));
    layout().setSelectedRange(TextRange{28, -20});
    EXPECT_EQ(band(), Band({0, 44}));
    layout().setEditing(false);
    EXPECT_EQ(band(), std::nullopt);
    layout().setEditing(true);
    layout().setLineSelectionDisplayType(LineSelectionDisplayType::disabled);
    EXPECT_EQ(band(), std::nullopt);
}

TEST_F(LineSelectionTest, MayBeThatOfRows) {
    layout().setLineSelectionDisplayType(LineSelectionDisplayType::lineFragment);
    layout().setSelectedRange(TextRange{12, 0});
    EXPECT_EQ(band(), Band({11, 22}));
    layout().setSelectedRange(TextRange{12, 30});
    EXPECT_EQ(band(), Band({11, 66}));
    EXPECT_EQ(layout().caretRect(10).y, 0);
    layout().setSelectedRange(TextRange{10, 0});
    EXPECT_EQ(band(), Band({0, 11})) << "the row in which the caret shows";
    // Rows off the screen are not typeset for it.
    layout().removeAllLines();
    text.resize({.width = 122, .height = 22});
    const std::int64_t typeset = *text.shaper->lineCount;
    layout().setSelectedRange(TextRange{28, 20});
    EXPECT_EQ(band(), Band({22, 66})) << "by estimates, the third row of the first line not being known";
    EXPECT_EQ(*text.shaper->lineCount, typeset);
}

TEST_F(LineSelectionTest, MarksTheNumbersOfItsLines) {
    layout().setSelectedRange(TextRange{28, 5});
    layout().layoutIfNeeded();
    const Color selected = layout().context().theme->selectedLinesLineNumberColor();
    for (const auto& [id, view] : layout().gutter().views().visibleViews())
        EXPECT_EQ(view->titleLabel().textColor() == selected, view->row() > 0) << view->row();
}

struct HighlightTest : ::testing::Test {
    void highlight(std::vector<HighlightedRange> ranges) {
        HighlightedRangeIndex::Ranges shared;
        for (const auto& range : ranges)
            shared.push_back(std::make_shared<HighlightedRange>(range));
        text.layout().setHighlightedRanges(shared);
        text.layout().layoutIfNeeded();
    }

    std::vector<Rect> frames() const {
        std::vector<Rect> found;
        for (const auto& [id, view] : text.layout().highlights().views().visibleViews())
            found.push_back(view->frame());
        std::ranges::sort(found, {}, [](const Rect& rect) { return std::pair(rect.y, rect.x); });
        return found;
    }

    mutable LaidOutText text{u"abcdefghijklmnopqrstuvwxyz\nab\nabcdefghijklmnopqrstuvwxyz"};
};

TEST_F(HighlightTest, HasAPartInEveryRow) {
    highlight({{.id = "long", .range = {5, 23}, .color = yellow, .cornerRadius = 2}});
    EXPECT_THAT(frames(), ElementsAre(Rect{50, 0, 50, 11}, Rect{0, 11, 100, 11}, Rect{0, 22, 60, 11},
                                      Rect{0, 33, 10, 11}));
    std::vector<std::pair<bool, bool>> corners;
    for (const auto& [id, view] : text.layout().highlights().views().visibleViews()) {
        EXPECT_EQ(view->backgroundColor(), yellow);
        EXPECT_EQ(view->cornerRadius(), 2);
        const CornerMask mask = view->maskedCorners();
        EXPECT_EQ(mask.topLeft, mask.bottomLeft);
        EXPECT_EQ(mask.topRight, mask.bottomRight);
        corners.emplace_back(mask.topLeft, mask.topRight);
    }
    EXPECT_THAT(corners, UnorderedElementsAre(std::pair(true, false), std::pair(false, false),
                                              std::pair(false, false), std::pair(false, true)));
    EXPECT_EQ(text.fault(), std::nullopt);
}

TEST_F(HighlightTest, FollowsItsRowsAndGoesWithThem) {
    highlight({{.range = {27, 1}}, {.range = {28, 1}}, {.range = {3, 0}}});
    EXPECT_THAT(frames(), ElementsAre(Rect{0, 33, 10, 11}, Rect{10, 33, 10, 11}));
    text.resize({.width = 50, .height = 110});
    EXPECT_THAT(frames(), ElementsAre(Rect{0, 66, 10, 11}, Rect{10, 66, 10, 11}));
    text.scrollTo(80);
    EXPECT_THAT(frames(), IsEmpty());
    EXPECT_EQ(text.layout().highlights().views().queuedViewCount(), 2U);
    text.scrollTo(0);
    EXPECT_EQ(frames().size(), 2U);
    EXPECT_EQ(text.layout().highlights().views().queuedViewCount(), 0U);
    highlight({});
    EXPECT_THAT(frames(), IsEmpty());
}

TEST(Settings, ReachEveryLineWhenItShows) {
    LaidOutText text(u"ab\tc\nab\tc\nab\tc", {.width = 1'000, .height = 15});
    text.scrollTo(18);
    text.scrollTo(0);
    text.layout().setKern(1);
    text.layout().setTabWidth(50);
    text.layout().setLineHeightMultiplier(2);
    for (const double y : {0, 22, 44}) {
        text.layout().layoutIfNeeded();
        text.scrollTo(y);
        EXPECT_EQ(text.shownRows().front().frame, (Rect{0, 0, 62, 22})) << y;
    }
    text.layout().setLanguageMode(std::make_shared<PlainTextInternalLanguageMode>());
    text.layout().layoutIfNeeded();
    EXPECT_EQ(text.fault(), std::nullopt);
}

} // namespace
