#include "Halcyonix/FancyPopoverPresenter.h"
#include "Halcyonix/SheetPresenter.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

namespace halcyonix {

namespace {

using platform::Animated;
using platform::ViewController;

enum class Motion { Full, Reduced };

template <typename Presenter>
struct Presented {
    explicit Presented(QSize window, QSize preferred = {}, Motion motion = Motion::Full) {
        QApplication::setEffectEnabled(Qt::UI_General, motion == Motion::Full);
        root.resize(window);
        root.show();
        auto owned = std::make_unique<ViewController>();
        card = owned.get();
        card->setPreferredContentSize(preferred);
        presenter.present(std::move(owned), root, [count = rests] { ++*count; });
    }

    SpringAnimator& animator() { return *presenter.transition()->animator(); }

    void moveTo(int milliseconds) { animator().propertyAnimator().setCurrentTime(milliseconds); }

    void comeToRest() { moveTo(1000); }

    qreal alpha() { return presenter.transition()->grayView()->alpha(); }

    ViewController root;
    Presenter presenter;
    QPointer<ViewController> card;
    std::shared_ptr<int> rests = std::make_shared<int>(0); // told in a later turn of the main loop
};

using Sheet = Presented<SheetPresenter>;
using Popover = Presented<FancyPopoverPresenter>;

} // namespace

TEST(SheetPresenter, SpringsFromBelowTheWindowOverItsLowerTwoThirds) {
    Sheet sheet({1280, 800});
    EXPECT_EQ(sheet.animator().animationType, AnimationType::Present);
    EXPECT_EQ(sheet.animator().fromViewController, &sheet.root);
    EXPECT_EQ(sheet.animator().toViewController, sheet.card);
    EXPECT_EQ(sheet.animator().dragGestureRecognizer, nullptr);
    EXPECT_EQ(sheet.animator().propertyAnimator().duration(), 1000);
    sheet.moveTo(0);
    EXPECT_EQ(sheet.card->geometry().topLeft(), QPoint(0, 800));
    EXPECT_EQ(sheet.alpha(), 0);
    sheet.moveTo(300);
    EXPECT_GT(sheet.card->y(), 264) << "a critically damped spring does not overshoot";
    EXPECT_LT(sheet.card->y(), 264 + 536 / 2) << "and is fast at first";
    sheet.comeToRest();
    EXPECT_EQ(sheet.card->geometry(), QRect(0, 264, 1280, 536));
    EXPECT_DOUBLE_EQ(sheet.alpha(), 0.5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return *sheet.rests == 1; }));
}

TEST(SheetPresenter, RoundsTheUpperCornersByFifteenPoints) {
    Sheet sheet({1280, 800});
    sheet.comeToRest();
    const QRegion mask = sheet.card->mask();
    EXPECT_FALSE(mask.contains(QPoint(4, 4)));
    EXPECT_TRUE(mask.contains(QPoint(5, 5))) << "a circle of 15 points cuts 4.4 points off the diagonal";
    EXPECT_FALSE(mask.contains(QPoint(1279 - 4, 4)));
    EXPECT_TRUE(mask.contains(QPoint(0, 535))) << "the lower corners are beyond the window";
}

TEST(SheetPresenter, DropsByItsHeightWhenTheGrayIsTapped) {
    Sheet sheet({1280, 800});
    sheet.comeToRest();
    QTest::mouseClick(sheet.presenter.transition()->grayView(), Qt::LeftButton, {}, {640, 100});
    EXPECT_EQ(sheet.animator().animationType, AnimationType::Dismiss);
    EXPECT_EQ(sheet.animator().fromViewController, sheet.card);
    EXPECT_EQ(sheet.animator().toViewController, &sheet.root);
    EXPECT_EQ(sheet.animator().propertyAnimator().duration(), 1000);
    EXPECT_EQ(sheet.card->y(), 264);
    sheet.moveTo(999);
    EXPECT_NEAR(sheet.card->y(), 264 + 536, 1);
    EXPECT_NEAR(sheet.alpha(), 0, 0.001);
    sheet.comeToRest();
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet.card.isNull(); }));
}

TEST(SheetPresenter, StaysWhenAPressOnTheGrayEndsElsewhere) {
    Sheet sheet({1280, 800});
    sheet.comeToRest();
    auto* gray = sheet.presenter.transition()->grayView();
    QTest::mousePress(gray, Qt::LeftButton, {}, {640, 100});
    QTest::mouseRelease(gray, Qt::LeftButton, {}, {640, -20});
    EXPECT_EQ(sheet.animator().animationType, AnimationType::Present);
    EXPECT_EQ(sheet.root.presentedViewController(), sheet.card);
}

TEST(SheetPresenter, TurnsBackFromWhereItIs) {
    Sheet sheet({1280, 800});
    sheet.moveTo(250);
    const int reached = sheet.card->y();
    const qreal gray = sheet.alpha();
    sheet.card->dismiss();
    sheet.moveTo(0);
    EXPECT_EQ(sheet.card->y(), reached);
    EXPECT_DOUBLE_EQ(sheet.alpha(), gray);
}

TEST(SheetPresenter, FollowsTheWindow) {
    Sheet sheet({1280, 800});
    sheet.comeToRest();
    sheet.root.resize(390, 844);
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet.card->geometry() == QRect(0, 279, 390, 565); }));
    EXPECT_EQ(sheet.presenter.transition()->grayView()->size(), QSize(390, 844));
}

TEST(SheetPresenter, IsThereAtOnceWhereMotionIsReduced) {
    Sheet sheet({1280, 800}, {}, Motion::Reduced);
    EXPECT_EQ(sheet.card->geometry(), QRect(0, 264, 1280, 536));
    EXPECT_DOUBLE_EQ(sheet.alpha(), 0.5);
    sheet.card->dismiss();
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet.card.isNull(); }));
}

TEST(FancyPopoverPresenter, SizesTheCardByTheWidthOfTheWindow) {
    Popover regular({1280, 800});
    EXPECT_EQ(regular.card->preferredContentSize(), QSize(600, 600));
    Popover compact({390, 844});
    EXPECT_EQ(compact.card->preferredContentSize(), QSize(310, 400));
    Popover low({390, 500});
    EXPECT_EQ(low.card->preferredContentSize(), QSize(310, 340));
    Popover own({1280, 800}, {375, 200});
    EXPECT_EQ(own.card->preferredContentSize(), QSize(375, 200));
    Popover large({1280, 800}, {2000, 2000});
    large.comeToRest();
    EXPECT_EQ(large.card->size(), QSize(1240, 640));
}

TEST(FancyPopoverPresenter, SpringsFromBelowToTheMiddleAndFallsAThousandPoints) {
    Popover popover({1280, 800});
    EXPECT_EQ(popover.animator().propertyAnimator().duration(), 1000);
    popover.moveTo(0);
    EXPECT_EQ(popover.card->geometry(), QRect(340, 100 + 800, 600, 600));
    popover.comeToRest();
    EXPECT_EQ(popover.card->geometry(), QRect(340, 100, 600, 600));
    EXPECT_DOUBLE_EQ(popover.alpha(), 0.5);
    for (const QPoint corner : {QPoint(4, 4), QPoint(595, 4), QPoint(4, 595), QPoint(595, 595)})
        EXPECT_FALSE(popover.card->mask().contains(corner));
    popover.card->dismiss();
    EXPECT_EQ(popover.animator().propertyAnimator().duration(), 800);
    popover.moveTo(799);
    EXPECT_NEAR(popover.card->y(), 1100, 1);
    EXPECT_NEAR(popover.alpha(), 0, 0.001);
}

} // namespace halcyonix
