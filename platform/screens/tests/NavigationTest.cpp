#include "platform/screens/controllers/NavigationBar.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/tests/ScreensTest.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

using namespace platform;

namespace {

class NavigationTest : public ScreensTest {
protected:
    NavigationController navigation{screen("A")};

    QAbstractButton* button(const char* name) {
        for (auto* found : navigation.navigationBar().findChildren<QAbstractButton*>())
            if (found->isVisible() && found->accessibleName() == QString::fromLatin1(name)) return found;
        return nullptr;
    }

    RecordingController& top() { return static_cast<RecordingController&>(*navigation.topViewController()); }
};

TEST_F(NavigationTest, TellsWhoComesAndWhoGoes) {
    show(navigation);
    EXPECT_EQ(told().toStdString(), "A load, A will+, A did+");
    navigation.pushViewController(screen("B"));
    turn();
    EXPECT_EQ(told().toStdString(), "A will-, B load, B will+, A did-, B did+");
    navigation.popViewController();
    navigation.popViewController(); // nothing below
    turn();
    EXPECT_EQ(told().toStdString(), "B will-, A will+, B did-, A did+");
    EXPECT_EQ(navigation.findChildren<RecordingController*>().size(), 1) << "what was popped is gone";
    navigation.hide();
    turn();
    navigation.show();
    turn();
    EXPECT_EQ(told().toStdString(), "A will-, A did-, A will+, A did+");
    navigation.showMinimized();
    turn();
    navigation.showNormal();
    turn();
    EXPECT_EQ(told().toStdString(), "") << "a minimised window's screens stay up";
}

TEST_F(NavigationTest, ASlideEndsOnceAlsoWhenTheNextOneInterruptsIt) {
    QApplication::setEffectEnabled(Qt::UI_General, true);
    show(navigation);
    told();
    navigation.pushViewController(screen("B"));
    turn();
    EXPECT_EQ(told().toStdString(), "A will-, B load, B will+");
    EXPECT_TRUE(top().field().hasFocus() || !QApplication::focusWidget());
    navigation.pushViewController(screen("C"));
    navigation.popViewController();
    ASSERT_TRUE(QTest::qWaitFor([&] { return log.contains(QStringLiteral("B did+")); }));
    turn();
    for (const auto* once : {"A did-", "B did+", "C did-"})
        EXPECT_EQ(log.count(QString::fromLatin1(once)), 1) << once;
    navigation.pushViewController(screen("D"));
    delete navigation.topViewController(); // while it moves
    EXPECT_EQ(top().title(), QStringLiteral("B"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return log.count(QStringLiteral("B did+")) == 2; }));
}

TEST_F(NavigationTest, LeadsBackByButtonKeyAndMouse) {
    show(navigation);
    top().field().setFocus();
    EXPECT_EQ(button("Back"), nullptr);
    const auto push = [&] {
        navigation.pushViewController(screen("B"));
        EXPECT_TRUE(top().field().hasFocus());
    };
    push();
    EXPECT_EQ(button("Back")->accessibleDescription(), QStringLiteral("A"));
    QTest::mouseClick(button("Back"), Qt::LeftButton);
    EXPECT_EQ(top().title(), QStringLiteral("A"));
    EXPECT_TRUE(top().field().hasFocus()) << "who had it when the screen was covered";
    push();
    QTest::keyClick(&top().field(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(top().title(), QStringLiteral("A"));
    push();
    QTest::mouseClick(&top().field(), Qt::BackButton);
    EXPECT_EQ(top().title(), QStringLiteral("A"));
    push();
    navigation.cancelPresentation();
    EXPECT_EQ(top().title(), QStringLiteral("A")) << "a sheet that shows a second screen goes back first";
}

TEST_F(NavigationTest, TheBarFollowsItsItem) {
    show(navigation);
    int saved = 0;
    auto& save = top().navigationItem().addTrailing(
        std::make_unique<BarButtonItem>(BarButtonItem::Look{{}, QStringLiteral("Save")}, [&] { ++saved; }));
    save.setShortcut(QKeySequence::Save);
    ASSERT_NE(button("Save"), nullptr);
    EXPECT_EQ(button("Save"), navigation.navigationBar().buttonOf(save));
    EXPECT_TRUE(button("Save")->toolTip().contains(QStringLiteral("Ctrl+S")));
    QTest::mouseClick(button("Save"), Qt::LeftButton);
    QTest::keyClick(&top().field(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(saved, 2);
    save.setEnabled(false);
    QTest::keyClick(&top().field(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(saved, 2);
    top().setTitle(QStringLiteral("Renamed"));
    EXPECT_EQ(navigation.navigationBar().findChild<QLabel*>()->text(), QStringLiteral("Renamed"));
    EXPECT_EQ(navigation.accessibleName(), QStringLiteral("Renamed"));
    navigation.pushViewController(screen("B"));
    EXPECT_EQ(button("Save"), nullptr);
    navigation.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(button("Back")->geometry().center().x(), navigation.width() / 2);
}

} // namespace
