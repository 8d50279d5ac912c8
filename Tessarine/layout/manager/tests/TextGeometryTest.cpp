#include "Tessarine/layout/manager/tests/LaidOutText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Rows of ten units: three of the first line, then "ab", then an empty line.
struct TextGeometryTest : ::testing::Test {
    LayoutManager& layout() { return text.layout(); }

    LaidOutText text{u"abcdefghijklmnopqrstuvwxyz\nab\n"};
};

TEST_F(TextGeometryTest, FindsTheCaret) {
    EXPECT_EQ(layout().caretRect(3), (Rect{30, 0, 3, 11}));
    EXPECT_EQ(layout().caretRect(10), (Rect{100, 0, 3, 11})) << "between two rows the end of the first";
    EXPECT_EQ(layout().caretRect(11), (Rect{10, 11, 3, 11}));
    EXPECT_EQ(layout().caretRect(28), (Rect{10, 33, 3, 11}));
    EXPECT_EQ(layout().caretRect(30), (Rect{0, 44, 3, 11}));
    EXPECT_EQ(layout().caretRect(-5), layout().caretRect(0));
    EXPECT_EQ(layout().caretRect(500), layout().caretRect(30));
    layout().setTextContainerInset({.top = 6, .left = 20});
    layout().setLineHeightMultiplier(2);
    EXPECT_EQ(layout().caretRect(28).x, 30);
    EXPECT_EQ(layout().caretRect(9), (Rect{30, 6 + 22 + 5.5, 3, 11})) << "in the middle of a higher row";
}

TEST_F(TextGeometryTest, FindsTheFirstRowOfARange) {
    EXPECT_EQ(layout().firstRect({2, 3}), (Rect{20, 0, 30, 11}));
    EXPECT_EQ(layout().firstRect({5, 20}), (Rect{50, 0, 50, 11}));
    EXPECT_EQ(layout().firstRect({27, 900}), (Rect{0, 33, 20, 11}));
    EXPECT_EQ(layout().firstRect({30, 0}).y, 44);
    layout().setViewport({.width = 25, .height = 50});
    EXPECT_EQ(layout().firstRect({2, 8}).width, 25);
    EXPECT_DEATH(layout().firstRect({31, 0}), "Cannot find first rect.");
    EXPECT_DEATH(layout().firstRect({-1, 0}), "Cannot find first rect.");
}

TEST_F(TextGeometryTest, FindsTheClosestIndex) {
    EXPECT_EQ(layout().closestIndex({34, 5}), 3);
    EXPECT_EQ(layout().closestIndex({36, 5}), 4);
    EXPECT_EQ(layout().closestIndex({36, 16}), 14);
    EXPECT_EQ(layout().closestIndex({-9, -9}), 0);
    EXPECT_EQ(layout().closestIndex({900, 35}), 29) << "in front of the break";
    EXPECT_EQ(layout().closestIndex({900, 900}), 30);
    for (std::int64_t at = 0; at <= 30; ++at) {
        const Rect caret = layout().caretRect(at);
        EXPECT_EQ(layout().closestIndex({caret.x, caret.y + 5}), at);
    }
}

TEST_F(TextGeometryTest, PartsASelectionByRows) {
    EXPECT_THAT(layout().selectionRects({4, 0}), IsEmpty());
    EXPECT_THAT(layout().selectionRects({2, 3}), ElementsAre(TextSelectionRect{{20, 0, 33, 11}, true, true}));
    EXPECT_EQ(layout().selectionRects({5, -3}), layout().selectionRects({2, 3}));
    EXPECT_THAT(layout().selectionRects({10, 10}),
                ElementsAre(TextSelectionRect{{0, 11, 103, 11}, true, true}))
        << "all of the second row and nothing of the first";
    EXPECT_THAT(layout().selectionRects({5, 10}),
                ElementsAre(TextSelectionRect{{50, 0, 50, 11}, true, false},
                            TextSelectionRect{{0, 11, 50, 11}, false, true}));
    EXPECT_THAT(layout().selectionRects({5, 20}),
                ElementsAre(TextSelectionRect{{50, 0, 50, 11}, true, false},
                            TextSelectionRect{{0, 11, 100, 11}, false, false},
                            TextSelectionRect{{0, 22, 50, 11}, false, true}));
    EXPECT_THAT(layout().selectionRects({0, 30}),
                ElementsAre(TextSelectionRect{{0, 0, 100, 11}, true, false},
                            TextSelectionRect{{0, 11, 100, 33}, false, false},
                            TextSelectionRect{{0, 44, 0, 11}, false, true}));
}

TEST_F(TextGeometryTest, FillsHigherRowsWithTheSelection) {
    layout().setLineHeightMultiplier(2);
    layout().layoutIfNeeded();
    EXPECT_THAT(layout().selectionRects({5, 10}),
                ElementsAre(TextSelectionRect{{50, 0, 50, 22}, true, false},
                            TextSelectionRect{{0, 22, 50, 22}, false, true}));
}

// Half of a break is selected only where somebody edits by units.
TEST(TextGeometry, ReachesToTheEdgeBehindARowsEnd) {
    LaidOutText text(u"ab\r\ncd");
    EXPECT_THAT(text.layout().selectionRects({1, 2}),
                ElementsAre(TextSelectionRect{{10, 0, 90, 11}, true, true}));
}

} // namespace
