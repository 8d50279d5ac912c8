#include "Tessarine/layout/ScrollView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessarine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct NotingHost : ViewHost {
    void viewNeedsDisplay(const Rect& rect) override { rects.push_back(rect); }

    std::vector<Rect> taken() { return std::exchange(rects, {}); }

    std::vector<Rect> rects;
};

struct CountingView : View {
    void layoutSubviews() override { ++layouts; }

    int layouts = 0;
};

struct ViewTest : ::testing::Test {
    ViewTest() {
        scrollView->setFrame({.width = 100, .height = 50});
        scrollView->setContentOffset({.x = 5, .y = 1'000});
        scrollView->setHost(host);
        view->setFrame({.x = 10, .y = 1'020, .width = 30, .height = 20});
        scrollView->addSubview(view);
        host->taken();
    }

    const std::shared_ptr<NotingHost> host = std::make_shared<NotingHost>();
    const std::shared_ptr<ScrollView> scrollView = std::make_shared<ScrollView>();
    const std::shared_ptr<CountingView> view = std::make_shared<CountingView>();
};

TEST_F(ViewTest, TellsTheHostWhereItIsOutOfDate) {
    view->setNeedsDisplay();
    EXPECT_THAT(host->taken(), ElementsAre(Rect{5, 20, 30, 20}));
    EXPECT_TRUE(view->needsDisplay());
    view->didDisplay();
    EXPECT_FALSE(view->needsDisplay());
    view->setFrame({11, 1'020, 30, 20});
    EXPECT_THAT(host->taken(), ElementsAre(Rect{5, 20, 30, 20}, Rect{6, 20, 30, 20}));
    view->setFrame({11, 1'020, 30, 20});
    EXPECT_THAT(host->taken(), IsEmpty());
    const auto inner = std::make_shared<View>();
    inner->setFrame({1, 2, 3, 4});
    view->addSubview(inner);
    EXPECT_THAT(host->taken(), ElementsAre(Rect{7, 22, 3, 4}));
    scrollView->setContentOffset({0, 0});
    EXPECT_THAT(host->taken(), ElementsAre(Rect{0, 0, 100, 50}));
}

TEST_F(ViewTest, IsSilentAboutWhatDoesNotShow) {
    view->setHidden(true);
    EXPECT_THAT(host->taken(), ElementsAre(Rect{5, 20, 30, 20}));
    view->setNeedsDisplay();
    view->setBackgroundColor(Color(RGBAColor::ofHex(0xFF0000)));
    EXPECT_THAT(host->taken(), IsEmpty());
    view->setHidden(false);
    view->setBackgroundColor(Color(RGBAColor::ofHex(0xFF0000)));
    EXPECT_THAT(host->taken(), ElementsAre(Rect{5, 20, 30, 20}));
    view->removeFromSuperview();
    EXPECT_THAT(host->taken(), ElementsAre(Rect{5, 20, 30, 20}));
    view->setNeedsDisplay();
    EXPECT_THAT(host->taken(), IsEmpty());
}

TEST_F(ViewTest, HasOneSuperviewAtATime) {
    const auto other = std::make_shared<View>();
    other->addSubview(view);
    EXPECT_THAT(scrollView->subviews(), IsEmpty());
    EXPECT_EQ(view->superview(), other);
    other->addSubview(view);
    EXPECT_THAT(other->subviews(), ElementsAre(view));
    view->removeFromSuperview();
    view->removeFromSuperview();
    EXPECT_EQ(view->superview(), nullptr);
    EXPECT_THAT(other->subviews(), IsEmpty());
}

TEST_F(ViewTest, PlacesItsSubviewsWhenItsSizeHasChanged) {
    scrollView->layoutIfNeeded();
    EXPECT_EQ(view->layouts, 1);
    view->setFrame({0, 0, 30, 20});
    scrollView->layoutIfNeeded();
    EXPECT_EQ(view->layouts, 1);
    view->setFrame({0, 0, 30, 21});
    scrollView->layoutIfNeeded();
    EXPECT_EQ(view->layouts, 2);
}

TEST_F(ViewTest, OfAScrollViewHasItsOwnInsetsAndThoseOfTheSurroundings) {
    scrollView->setContentInset({1, 2, 3, 4});
    scrollView->setSafeAreaInsets({10, 20, 30, 40});
    EXPECT_EQ(scrollView->adjustedContentInset(), (EdgeInsets{11, 22, 33, 44}));
    EXPECT_EQ(scrollView->bounds(), (Rect{5, 1'000, 100, 50}));
}

} // namespace
