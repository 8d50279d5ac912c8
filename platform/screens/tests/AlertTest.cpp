#include "platform/screens/controllers/AlertButton.h"
#include "platform/screens/controllers/AlertController.h"
#include "platform/screens/tests/ScreensTest.h"

using namespace platform;

namespace {

class AlertTest : public ScreensTest {
protected:
    RecordingController window{QStringLiteral("W"), log};

    void ask(std::initializer_list<std::pair<const char*, AlertAction::Style>> actions) {
        auto alert = std::make_unique<AlertController>(QStringLiteral("Title"), QStringLiteral("Message"));
        for (const auto& [title, style] : actions) {
            const QString name = QString::fromLatin1(title);
            alert->addAction({name, style, [this, name] { answers += name; }});
        }
        window.present(std::move(alert));
        turn();
    }

    AlertButton* button(const char* title) {
        for (auto* found : window.findChildren<AlertButton*>())
            if (found->text() == QString::fromLatin1(title)) return found;
        return nullptr;
    }

    static void press(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        turn();
    }

    QStringList answers;
};

using enum AlertAction::Style;

TEST_F(AlertTest, ReturnAndEscapeDestroyNothing) {
    show(window);
    window.field().setFocus();
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
        ask({{"Delete", Destructive}, {"Cancel", Cancel}});
        EXPECT_TRUE(button("Cancel")->hasFocus());
        press(key);
        EXPECT_EQ(std::exchange(answers, {}), QStringList{QStringLiteral("Cancel")});
        EXPECT_EQ(window.presentedViewController(), nullptr);
        EXPECT_TRUE(window.field().hasFocus());
    }
    ask({{"Delete", Destructive}, {"Cancel", Cancel}});
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    EXPECT_EQ(std::exchange(answers, {}), QStringList{QStringLiteral("Delete")});
    ask({{"Delete", Destructive}, {"Keep", Default}});
    EXPECT_TRUE(button("Keep")->hasFocus());
    press(Qt::Key_Escape); // cancels nothing that is named so
    EXPECT_TRUE(answers.isEmpty());
}

TEST_F(AlertTest, IsAnsweredOnceAndNotByAPressBeside) {
    show(window);
    ask({{"Okay", Default}});
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_NE(window.presentedViewController(), nullptr);
    auto* okay = button("Okay");
    QTest::mouseClick(okay, Qt::LeftButton);
    QTest::mouseClick(okay, Qt::LeftButton);
    turn();
    EXPECT_EQ(answers, QStringList{QStringLiteral("Okay")});
}

TEST_F(AlertTest, TwoShortAnswersLieBesideEachOtherAndTheRestAboveEachOther) {
    show(window);
    ask({{"Delete", Destructive}, {"Cancel", Cancel}});
    EXPECT_EQ(button("Cancel")->y(), button("Delete")->y());
    EXPECT_LT(button("Cancel")->x(), button("Delete")->x());
    press(Qt::Key_Escape);
    ask({{"Cancel", Cancel}, {"Delete everything that is in this folder", Destructive}});
    EXPECT_GT(button("Cancel")->y(), button("Delete everything that is in this folder")->y());
    EXPECT_EQ(window.presentedViewController()->geometry().center(), window.rect().center());
}

} // namespace
