#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controllers/PresentationContainer.h"
#include "platform/screens/tests/ScreensTest.h"

#include <QtGui/QAccessible>
#include <QtGui/QShortcut>
#include <QtWidgets/QPushButton>

using namespace platform;

namespace {

class PresentationTest : public ScreensTest {
protected:
    RecordingController window{QStringLiteral("W"), log};
};

TEST_F(PresentationTest, ASheetOverAScreenDoesNotMakeThatScreenDisappear) {
    show(window);
    EXPECT_EQ(told().toStdString(), "W load, W will+, W did+");
    window.present(screen("S"), Animated::Yes, [&] { log += QStringLiteral("presented"); });
    EXPECT_EQ(window.presentedViewController()->presentingViewController(), &window);
    turn();
    EXPECT_EQ(told().toStdString(), "S load, S will+, S did+, presented");
    window.dismiss(Animated::Yes, [&] { log += QStringLiteral("dismissed"); });
    EXPECT_EQ(window.presentedViewController(), nullptr);
    turn();
    EXPECT_EQ(told().toStdString(), "S will-, S did-, dismissed");
    EXPECT_TRUE(window.findChildren<PresentationContainer*>().isEmpty());
}

TEST_F(PresentationTest, AMovingSheetSaysDidWhenItRests) {
    QApplication::setEffectEnabled(Qt::UI_General, true);
    show(window);
    turn();
    told();
    int presented = 0;
    int dismissed = 0;
    window.present(screen("S"), Animated::Yes, [&] { ++presented; });
    turn();
    EXPECT_EQ(told().toStdString(), "S load, S will+");
    ASSERT_TRUE(QTest::qWaitFor([&] { return presented == 1; }));
    EXPECT_EQ(told().toStdString(), "S did+");
    // Dismissed while it comes: both words are said, once.
    window.dismiss();
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChildren<PresentationContainer*>().isEmpty(); }));
    turn();
    told();
    window.present(screen("T"), Animated::Yes, [&] { ++presented; });
    window.dismiss(Animated::Yes, [&] { ++dismissed; });
    window.dismiss(Animated::Yes, [&] { ++dismissed; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return dismissed == 2; }));
    turn();
    EXPECT_EQ(presented, 2);
    EXPECT_EQ(told().toStdString(), "T load, T will+, T will-, T did-");
}

TEST_F(PresentationTest, FocusStaysInTheTopmostAndComesBack) {
    auto* other = new QLineEdit(&window);
    show(window);
    window.field().setFocus();
    window.present(screen("S"));
    auto* sheet = static_cast<RecordingController*>(window.presentedViewController());
    EXPECT_TRUE(sheet->field().hasFocus());
    QTest::keyClick(&sheet->field(), Qt::Key_Tab);
    EXPECT_TRUE(sheet->field().hasFocus()) << "the only one";
    sheet->present(screen("T"));
    auto* upper = static_cast<RecordingController*>(sheet->presentedViewController());
    EXPECT_TRUE(upper->field().hasFocus());
    QTest::keyClick(&upper->field(), Qt::Key_Escape);
    EXPECT_TRUE(sheet->field().hasFocus());
    // What is given the focus behind gets it afterwards.
    other->setFocus();
    EXPECT_TRUE(sheet->field().hasFocus());
    QTest::keyClick(&sheet->field(), Qt::Key_Escape);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(PresentationTest, NothingReachesWhatLiesBehind) {
    auto* button = new QPushButton(&window);
    button->setGeometry(4, 4, 60, 30);
    int reached = 0;
    QObject::connect(button, &QPushButton::clicked, [&] { ++reached; });
    QObject::connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_N), &window), &QShortcut::activated,
                     [&] { ++reached; });
    show(window);
    window.present(screen("S"));
    auto* sheet = static_cast<RecordingController*>(window.presentedViewController());
    QTest::keyClick(&sheet->field(), Qt::Key_N, Qt::ControlModifier);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    EXPECT_EQ(reached, 0);
    EXPECT_EQ(window.presentedViewController(), nullptr) << "the press was beside the card";
    QTest::keyClick(&window.field(), Qt::Key_N, Qt::ControlModifier);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    EXPECT_EQ(reached, 2);
}

TEST_F(PresentationTest, ThoseAboveGoWithTheOneBelow) {
    show(window);
    window.field().setFocus();
    window.present(screen("S"));
    window.present(screen("T")); // from one that presents already: on top
    auto* lower = window.presentedViewController();
    EXPECT_EQ(lower->title(), QStringLiteral("S"));
    auto* upper = QApplication::focusWidget()->parentWidget();
    static_cast<ViewController*>(upper)->present(screen("U"));
    turn();
    told();
    lower->dismiss(); // presents nothing itself
    turn();
    EXPECT_EQ(told().toStdString(), "U will-, T will-, S will-, U did-, T did-, S did-");
    EXPECT_TRUE(window.field().hasFocus());
    bool isTold = false;
    window.dismiss(Animated::Yes, [&] { isTold = true; });
    turn();
    EXPECT_TRUE(isTold);
}

TEST_F(PresentationTest, WhoGoesAwayTakesNoOneDown) {
    QApplication::setEffectEnabled(Qt::UI_General, true);
    show(window);
    auto inner = std::make_unique<ViewController>(&window);
    inner->show();
    inner->present(screen("S"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return log.contains(QStringLiteral("S did+")); }));
    inner.reset();
    turn();
    EXPECT_TRUE(window.findChildren<PresentationContainer*>().isEmpty()) << "its presenter is gone";
    bool isTold = false;
    window.present(screen("T"), Animated::Yes, [&] { isTold = true; });
    delete window.presentedViewController(); // while it moves
    ASSERT_TRUE(QTest::qWaitFor([&] { return isTold; }));
    turn();
    EXPECT_TRUE(window.findChildren<PresentationContainer*>().isEmpty());
    window.present(screen("U"));
    window.close();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PresentationTest, AssistiveToolsFindANamedModalDialog) {
    show(window);
    window.present(screen("New Snippet"));
    auto* container = PresentationContainer::around(*window.presentedViewController());
    auto* interface = QAccessible::queryAccessibleInterface(container);
    EXPECT_EQ(interface->role(), QAccessible::Dialog);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("New Snippet"));
    EXPECT_TRUE(interface->state().modal);
}

TEST_F(PresentationTest, FollowsTheWindowBetweenWideAndNarrow) {
    show(window);
    window.present(screen("S"));
    const auto* sheet = window.presentedViewController();
    EXPECT_LT(sheet->width(), window.width());
    EXPECT_EQ(sheet->geometry().center(), window.rect().center());
    window.resize(390, 844);
    turn();
    EXPECT_EQ(sheet->width(), 390);
    EXPECT_EQ(sheet->geometry().bottom(), window.rect().bottom());
}

} // namespace
