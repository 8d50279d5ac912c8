#include "Tessarine/view/interaction/CaretBlink.h"
#include "Tessarine/view/interaction/EdgeScroll.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

#include <vector>

using namespace tessarine;

namespace {

TEST(EdgeScroll, RunsBeyondTheEdgesOnly) {
    QPointF moved;
    EdgeScroll scroll([&](const QPointF& step) { moved += step; });
    scroll.dragTo({50, 50}, {0, 0, 100, 100});
    EXPECT_FALSE(scroll.isRunning());
    scroll.dragTo({50, 120}, {0, 0, 100, 100});
    EXPECT_TRUE(QTest::qWaitFor([&] { return moved.y() > 5; }));
    EXPECT_EQ(moved.x(), 0);
    scroll.dragTo({-20, 50}, {0, 0, 100, 100});
    EXPECT_TRUE(QTest::qWaitFor([&] { return moved.x() < -5; }));
    scroll.dragTo({1, 1}, {0, 0, 100, 100});
    EXPECT_FALSE(scroll.isRunning());
}

TEST(EdgeScroll, IsFasterFurtherAwayUpToABound) {
    const auto firstStep = [](double place) {
        double step = 0;
        EdgeScroll scroll([&](const QPointF& by) { step = by.y(); });
        scroll.dragTo({0, place}, {0, 0, 100, 100});
        EXPECT_TRUE(QTest::qWaitFor([&] { return step != 0; }));
        return step;
    };
    EXPECT_LT(firstStep(104), firstStep(140));
    EXPECT_EQ(firstStep(1e9), firstStep(1e8));
    EXPECT_EQ(firstStep(-40), -firstStep(140));
}

struct CaretBlinkTest : ::testing::Test {
    ~CaretBlinkTest() override { QApplication::setCursorFlashTime(flashTime); }

    const int flashTime = QApplication::cursorFlashTime();
    std::vector<bool> shown;
    CaretBlink blink{[this](bool isShown) { shown.push_back(isShown); }};
};

TEST_F(CaretBlinkTest, BlinksUntilItIsStopped) {
    QApplication::setCursorFlashTime(20);
    blink.start();
    EXPECT_EQ(shown, std::vector{true});
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.size() >= 4; }));
    shown.resize(4);
    EXPECT_EQ(shown, (std::vector{true, false, true, false}));
    blink.stop();
    EXPECT_FALSE(shown.back());
    const std::size_t count = shown.size();
    EXPECT_EQ(shown.size(), count);
}

TEST_F(CaretBlinkTest, StandsStillWhereTheDesktopWantsItSo) {
    QApplication::setCursorFlashTime(0);
    blink.start();
    bool isOver = false;
    QTimer::singleShot(30, [&] { isOver = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver; }));
    EXPECT_EQ(shown, std::vector{true});
    QApplication::setCursorFlashTime(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.size() >= 4; }));
}

} // namespace
