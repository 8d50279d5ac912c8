#include "Tessarine/layout/PageGuideController.h"

#include "Tessarine/layout/tests/FixedMeasurer.h"
#include "Tessarine/theme/DefaultTheme.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

TEST(PageGuideController, StandsBehindItsColumn) {
    const auto measurer = std::make_shared<FixedMeasurer>();
    PageGuideController controller(measurer);
    EXPECT_EQ(controller.columnOffset(), 120 * 7);
    EXPECT_EQ(controller.columnOffset(), 120 * 7);
    EXPECT_EQ(measurer->measured, 1);
    controller.setKern(0.5);
    EXPECT_EQ(controller.columnOffset(), 120 * 7.5);
    controller.setColumn(80);
    EXPECT_EQ(controller.columnOffset(), 80 * 7.5);
    controller.setFont(Font::system(20));
    EXPECT_EQ(controller.columnOffset(), 80 * 10.5);
    controller.setColumn(-1);
    EXPECT_EQ(controller.columnOffset(), 0);
}

TEST(PageGuideController, ShowsAnAreaWithALine) {
    PageGuideController controller(std::make_shared<FixedMeasurer>());
    PageGuideView& view = *controller.guideView();
    const DefaultTheme theme;
    controller.setTheme(theme);
    EXPECT_EQ(view.backgroundColor(), theme.pageGuideBackgroundColor());
    EXPECT_EQ(view.hairlineView().backgroundColor(), theme.pageGuideHairlineColor());
    view.setScreenScale(2);
    view.setFrame({100, 0, 300, 400});
    view.layoutIfNeeded();
    EXPECT_EQ(view.hairlineView().frame(), (Rect{0, 0, 0.5, 400}));
    EXPECT_EQ(view.hairlineView().superview().get(), &view);
    EXPECT_FALSE(view.isUserInteractionEnabled());
    EXPECT_FALSE(view.hairlineView().isUserInteractionEnabled());
}

} // namespace
