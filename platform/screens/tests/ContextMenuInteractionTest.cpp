#include "platform/screens/menus/ContextMenuInteraction.h"

#include <QtTest/QTest>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScroller>
#include <gtest/gtest.h>

using namespace platform;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

class ContextMenuInteractionTest : public ::testing::Test {
protected:
    ContextMenuInteractionTest() {
        list.addItems({q("One"), q("Two")});
        list.setGeometry(0, 0, 200, 100);
        button.setGeometry(0, 110, 200, 60);
        window.resize(200, 200);
        for (auto* widget : {list.viewport(), static_cast<QWidget*>(&button)})
            ContextMenuInteraction::attach(*widget, [this](QPoint at) -> std::optional<Menu> {
                asked += at;
                return Menu{{}, {MenuAction{q("Delete")}}};
            });
        QObject::connect(&button, &QPushButton::clicked, &button, [this] { ++presses; });
        QObject::connect(&list, &QListWidget::clicked, &list, [this] { ++presses; });
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    bool isOpen() { return QApplication::activePopupWidget() != nullptr; }

    void close() {
        if (auto* popup = QApplication::activePopupWidget()) popup->close();
    }

    // By way of the window, which makes the question for a menu of it.
    void rightClick(QWidget& widget, QPoint at) {
        QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, widget.mapTo(&window, at));
    }

    void holdFinger(QWidget& widget, QPoint at) {
        QTest::touchEvent(&widget, finger()).press(0, at, &widget);
        EXPECT_TRUE(QTest::qWaitFor([&] { return isOpen(); }));
        QTest::touchEvent(&widget, finger()).release(0, at, &widget);
        QCoreApplication::processEvents();
    }

    static QPointingDevice* finger() {
        static QPointingDevice* const device = QTest::createTouchDevice();
        return device;
    }

    QWidget window;
    QListWidget list{&window};
    QPushButton button{&window};
    QList<QPoint> asked;
    int presses = 0;
};

TEST_F(ContextMenuInteractionTest, ARightClickOpensItAtThePoint) {
    rightClick(button, {50, 20});
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(asked, QList<QPoint>({{50, 20}}));
    close();
    rightClick(*list.viewport(), {30, 8});
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(asked.last(), QPoint(30, 8));
}

TEST_F(ContextMenuInteractionTest, TheKeyboardOpensItOnce) {
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Menu);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(asked, QList<QPoint>({button.rect().center()}));
    close();
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(asked.size(), 2);
}

TEST_F(ContextMenuInteractionTest, ALongPressOpensItAndPressesNothing) {
    holdFinger(button, {40, 10});
    EXPECT_EQ(asked, QList<QPoint>({{40, 10}}));
    close();
    EXPECT_FALSE(button.isDown());
    holdFinger(*list.viewport(), {40, 10});
    close();
    QScroller::grabGesture(list.viewport(), QScroller::TouchGesture);
    holdFinger(*list.viewport(), {41, 10});
    EXPECT_EQ(asked.last(), QPoint(41, 10));
    close();
    EXPECT_EQ(presses, 0);
    QTest::touchEvent(&button, finger()).press(0, {5, 5}, &button);
    QTest::touchEvent(&button, finger()).release(0, {5, 5}, &button);
    EXPECT_EQ(presses, 1);
}

// The finger that moves opens nothing; the one that goes down after it does, which ends the wait.
TEST_F(ContextMenuInteractionTest, AFingerThatMovesOpensNothing) {
    QTest::touchEvent(&button, finger()).press(0, {40, 10}, &button);
    QTest::touchEvent(&button, finger()).move(0, {40, 30}, &button);
    bool isOver = false;
    Timer later(Timer::Kind::OneShot, std::chrono::milliseconds(700), [&] { isOver = true; });
    later.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver || isOpen(); }));
    EXPECT_TRUE(isOver);
    EXPECT_TRUE(asked.isEmpty());
    QTest::touchEvent(&button, finger()).release(0, {40, 30}, &button);
}

} // namespace
