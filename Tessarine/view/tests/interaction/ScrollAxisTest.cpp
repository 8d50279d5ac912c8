#include "Tessarine/view/interaction/ScrollAxis.h"

#include <QtWidgets/QScrollBar>
#include <gtest/gtest.h>

using namespace tessarine;

namespace {

struct ScrollAxisTest : ::testing::Test {
    QScrollBar bar;
    ScrollAxis axis{bar};
};

TEST_F(ScrollAxisTest, CountsInPointsAndKeepsFractions) {
    axis.show({.minimum = -10, .maximum = 90.5, .page = 30, .line = 18.2, .offset = 12.25});
    EXPECT_EQ(bar.maximum(), 101);
    EXPECT_EQ(bar.pageStep(), 30);
    EXPECT_EQ(bar.singleStep(), 18);
    EXPECT_EQ(bar.value(), 22);
    EXPECT_EQ(axis.offset(), 12.25);
    bar.setValue(23);
    EXPECT_EQ(axis.offset(), 13);
    bar.setValue(0);
    EXPECT_EQ(axis.offset(), -10);
    bar.setValue(bar.maximum());
    EXPECT_EQ(axis.offset(), 90.5);
}

TEST_F(ScrollAxisTest, HasNowhereToGoWhereAllShows) {
    axis.show({.minimum = 0, .maximum = -50, .page = 100, .line = 0, .offset = 7});
    EXPECT_EQ(bar.maximum(), 0);
    EXPECT_EQ(bar.singleStep(), 1);
    EXPECT_EQ(axis.offset(), 7);
}

TEST_F(ScrollAxisTest, ReachesAllOfAContentThatIsLongerThanAnyInt) {
    constexpr double length = 3e10;
    axis.show({.minimum = 0, .maximum = length, .page = 800, .line = 20, .offset = length / 3});
    EXPECT_EQ(axis.offset(), length / 3);
    EXPECT_GE(bar.pageStep(), 1);
    bar.setValue(bar.maximum());
    EXPECT_EQ(axis.offset(), length);
    bar.setValue(bar.maximum() / 2);
    EXPECT_NEAR(axis.offset(), length / 2, 800);
}

} // namespace
