#include "Tessarine/view/QtViewWidget.h"

#include "Tessarine/layout/DrawContext.h"
#include "Tessarine/layout/ScrollView.h"

#include <QtGui/QPaintEvent>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include <vector>

using namespace tessarine;

namespace {

constexpr Color white(RGBAColor::ofHex(0xFFFFFF));
constexpr Color red(RGBAColor::ofHex(0xFF0000));
constexpr Color blueOrGreen(RGBAColor::ofHex(0x0000FF), RGBAColor::ofHex(0x00FF00));

struct DrawingView : View {
    void draw(DrawContext& context) override {
        ++draws;
        context.setFillColor(blueOrGreen);
        context.fillRect({0, 0, 4, 4});
    }

    void layoutSubviews() override {
        ++layouts;
        setNeedsDisplay();
    }

    int draws = 0;
    int layouts = 0;
};

struct NotedWidget : QtViewWidget {
    void paintEvent(QPaintEvent* event) override {
        painted += event->region();
        ++paints;
        QtViewWidget::paintEvent(event);
    }

    QRegion painted;
    int paints = 0;
};

// Twenty rows of 20 points in a view of 100 by 100.
struct QtViewWidgetTest : ::testing::Test {
    QtViewWidgetTest() {
        for (int i = 0; i < 20; ++i) {
            rows.push_back(std::make_shared<DrawingView>());
            rows.back()->setFrame({10, 20.0 * i, 50, 20});
            scrollView->addSubview(rows.back());
        }
        scrollView->setBackgroundColor(white);
        widget.resize(100, 100);
        widget.setRootView(scrollView);
        widget.show();
        settle();
    }

    void settle() {
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
        QCoreApplication::processEvents();
    }

    QRegion paintedBy(auto change) {
        settle();
        widget.painted = {};
        change();
        settle();
        return widget.painted;
    }

    int draws() const {
        int sum = 0;
        for (const auto& row : rows)
            sum += row->draws;
        return sum;
    }

    QRgb pixel(int x, int y) { return widget.grab().toImage().pixel(x, y); }

    const std::shared_ptr<ScrollView> scrollView = std::make_shared<ScrollView>();
    std::vector<std::shared_ptr<DrawingView>> rows;
    NotedWidget widget;
};

TEST_F(QtViewWidgetTest, ShowsTheTree) {
    EXPECT_EQ(scrollView->bounds(), (Rect{0, 0, 100, 100}));
    EXPECT_EQ(pixel(11, 21), qRgb(0, 0, 255));
    EXPECT_EQ(pixel(5, 21), qRgb(255, 255, 255));
    widget.setUserInterfaceStyle(UserInterfaceStyle::Dark);
    EXPECT_EQ(pixel(11, 21), qRgb(0, 255, 0));
    rows[1]->setHidden(true);
    EXPECT_EQ(pixel(11, 21), qRgb(255, 255, 255));
}

TEST_F(QtViewWidgetTest, PaintsOnlyWhatHasChanged) {
    EXPECT_EQ(draws(), 5);
    EXPECT_EQ(paintedBy([&] { rows[2]->setNeedsDisplay(); }), QRegion(10, 40, 50, 20));
    EXPECT_EQ(draws(), 6);
    EXPECT_EQ(paintedBy([&] { rows[3]->setBackgroundColor(red); }), QRegion(10, 60, 50, 20));
    EXPECT_EQ(pixel(20, 70), qRgb(255, 0, 0));
    EXPECT_EQ(draws(), 6);
    EXPECT_TRUE(paintedBy([&] { rows[10]->setNeedsDisplay(); }).isEmpty());
}

TEST_F(QtViewWidgetTest, ScrollingDrawsOnlyWhatIsNew) {
    scrollView->setContentOffset({0, 40});
    settle();
    EXPECT_EQ(draws(), 7);
    EXPECT_EQ(pixel(11, 1), qRgb(0, 0, 255));
    scrollView->setContentOffset({0, 0});
    settle();
    EXPECT_EQ(draws(), 7);
    scrollView->setContentOffset({8, 30.4});
    EXPECT_EQ(pixel(3, 10), qRgb(0, 0, 255));
    EXPECT_EQ(pixel(3, 9), qRgb(255, 255, 255));
    EXPECT_EQ(draws(), 7);
}

TEST_F(QtViewWidgetTest, LaysOutWithinOnePainting) {
    const int before = widget.paints;
    const int layouts = rows[1]->layouts;
    rows[1]->setFrame({10, 20, 60, 20});
    settle();
    EXPECT_EQ(rows[1]->layouts, layouts + 1);
    EXPECT_EQ(widget.paints, before + 1);
}

TEST_F(QtViewWidgetTest, FitsTheRootAndLetsGoOfIt) {
    widget.resize(70, 50);
    settle();
    EXPECT_EQ(scrollView->bounds(), (Rect{0, 0, 70, 50}));
    widget.setRootView(nullptr);
    EXPECT_TRUE(paintedBy([&] { rows[0]->setNeedsDisplay(); }).isEmpty());
    EXPECT_NE(pixel(11, 1), qRgb(0, 0, 255));
}

TEST_F(QtViewWidgetTest, OutOfReachIsNoPlaceToPaint) {
    rows[0]->setFrame({10, 1e15, 1e15, 1e15});
    scrollView->setContentOffset({0, 1e15});
    settle();
    scrollView->setContentOffset({-1e15, 0});
    settle();
    rows[0]->setFrame({-1e15, -1e15, 3e15, 3e15});
    rows[0]->setBackgroundColor(red);
    EXPECT_EQ(pixel(50, 50), qRgb(255, 0, 0));
}

} // namespace
