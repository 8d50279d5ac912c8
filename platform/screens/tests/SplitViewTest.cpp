#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controllers/SplitDivider.h"
#include "platform/screens/controllers/SplitViewController.h"
#include "platform/screens/tests/ScreensTest.h"

#include <QtWidgets/QAbstractButton>

using namespace platform;
using Column = SplitViewController::Column;

namespace {

class Split : public SplitViewController {
public:
    using SplitViewController::SplitViewController;

protected:
    bool collapsesSecondaryOntoPrimary() override { return true; }
};

class SplitViewTest : public ScreensTest {
protected:
    Split split{screen("P"), std::make_unique<NavigationController>(screen("S"))};

    const QWidget& primary() const { return *split.viewController(Column::Primary); }

    const QWidget& secondary() const { return *split.viewController(Column::Secondary); }
};

TEST_F(SplitViewTest, TwoColumnsWhereThereIsRoomAndOneWhereNot) {
    show(split);
    EXPECT_EQ(told().toStdString(), "P load, S load, P will+, S will+, P did+, S did+");
    EXPECT_EQ(primary().width(), 330);
    EXPECT_EQ(primary().width() + 1 + secondary().width(), 1000);
    split.showColumn(Column::Secondary);
    split.resize(390, 844);
    turn();
    EXPECT_TRUE(split.isCollapsed());
    EXPECT_EQ(split.topColumn(), Column::Primary);
    EXPECT_EQ(primary().width(), 390);
    EXPECT_EQ(told().toStdString(), "S will-, S did-");
    split.showColumn(Column::Secondary);
    turn();
    EXPECT_EQ(told().toStdString(), "P will-, S will+, P did-, S did+");
    for (auto* button : split.findChildren<QAbstractButton*>())
        if (button->accessibleName() == QStringLiteral("Back")) QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(split.topColumn(), Column::Primary);
    split.resize(1000, 700);
    turn();
    EXPECT_TRUE(primary().isVisible() && secondary().isVisible());
    EXPECT_FALSE(split.isCollapsed());
}

TEST_F(SplitViewTest, TheDividerIsDraggedWithinLimitsAndKept) {
    show(split);
    auto* divider = split.findChild<SplitDivider*>();
    const auto dragBy = [&](int distance) {
        const QPoint from = divider->rect().center();
        QTest::mousePress(divider, Qt::LeftButton, {}, from);
        QTest::mouseMove(divider, from + QPoint(distance, 0));
        QTest::mouseRelease(divider, Qt::LeftButton);
    };
    dragBy(70);
    EXPECT_EQ(primary().width(), 400);
    split.resize(390, 844);
    split.resize(1000, 700);
    EXPECT_EQ(primary().width(), 400);
    dragBy(-400);
    EXPECT_EQ(primary().width(), 260);
    split.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(primary().geometry().right(), split.width() - 1);
    dragBy(-40);
    EXPECT_EQ(primary().width(), 300);
}

TEST_F(SplitViewTest, F6MovesTheFocusBetweenTheColumns) {
    show(split);
    QWidget* left = primary().findChild<QLineEdit*>();
    QWidget* right = secondary().findChild<QLineEdit*>();
    left->setFocus();
    QTest::keyClick(left, Qt::Key_F6);
    EXPECT_TRUE(right->hasFocus());
    QTest::keyClick(right, Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(left->hasFocus());
}

} // namespace
