#include "Quillet/controls/ModalTextFieldHost.h"

#include "Quillet/controls/SnippetNavigationController.h"
#include "platform/screens/controllers/AlertController.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <gtest/gtest.h>

namespace quillet {

namespace {

class ModalTextFieldHostTest : public ::testing::Test {
protected:
    void present(QSize window = {1280, 800}) {
        QApplication::setEffectEnabled(Qt::UI_General, false);
        root.resize(window);
        root.show();
        root.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&root));
        ModalTextFieldHost::present(root,
                                    {.title = QStringLiteral("Segment"),
                                     .prompt = QStringLiteral("Title"),
                                     .placeholder = QStringLiteral("A title"),
                                     .errorOnEmpty = QStringLiteral("You need a name for your segment.")},
                                    [this](const QString& text) {
                                        entered << text;
                                        wasUp = navigation && navigation->isVisible() &&
                                                root.presentedViewController() == navigation;
                                    });
        navigation = qobject_cast<SnippetNavigationController*>(root.presentedViewController());
        ASSERT_NE(navigation, nullptr);
        host = qobject_cast<ModalTextFieldHost*>(navigation->topViewController());
        ASSERT_NE(host, nullptr);
        field = host->findChild<QLineEdit*>();
        QCoreApplication::processEvents();
    }

    static QAbstractButton* buttonIn(QWidget* view, const QString& text) {
        for (auto* button : view->findChildren<QAbstractButton*>())
            if (button->text() == text || button->accessibleName() == text) return button;
        return nullptr;
    }

    platform::AlertController* alert() {
        return qobject_cast<platform::AlertController*>(
            host->modalTextFieldHostingController().presentedViewController());
    }

    platform::ViewController root;
    QPointer<SnippetNavigationController> navigation;
    QPointer<ModalTextFieldHost> host;
    QPointer<QLineEdit> field;
    QStringList entered;
    bool wasUp = false;
};

} // namespace

TEST_F(ModalTextFieldHostTest, IsAPopoverThatPointsToTheLowerCornerOfItsPresenter) {
    present();
    EXPECT_EQ(navigation->modalPresentationStyle, platform::ModalPresentationStyle::Popover);
    EXPECT_EQ(navigation->preferredContentSize(), QSize(375, 375));
    EXPECT_EQ(navigation->popoverAnchor.view, &root);
    EXPECT_EQ(navigation->popoverAnchor.rect, QRect(60, 640, 0, 0));
    EXPECT_EQ(navigation->popoverAnchor.arrow, Qt::BottomEdge);
    EXPECT_EQ(host->title(), QStringLiteral("Segment"));
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Title"));
    EXPECT_EQ(field->placeholderText(), QStringLiteral("A title"));
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(ModalTextFieldHostTest, IsASheetInANarrowWindow) {
    present({390, 844});
    EXPECT_EQ(navigation->mapTo(&root, QPoint()).x(), 0);
    EXPECT_EQ(navigation->width(), 390);
}

TEST_F(ModalTextFieldHostTest, HandsOverTheTextBeforeItGoes) {
    present();
    QTest::keyClicks(field, QStringLiteral("Setup"));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(entered, QStringList{QStringLiteral("Setup")});
    EXPECT_TRUE(wasUp);
    EXPECT_TRUE(QTest::qWaitFor([&] { return navigation.isNull(); }));
}

TEST_F(ModalTextFieldHostTest, TakesBlanksForAText) {
    present();
    QTest::keyClicks(field, QStringLiteral("  "));
    QTest::mouseClick(buttonIn(host, QStringLiteral("Done")), Qt::LeftButton);
    EXPECT_EQ(entered, QStringList{QStringLiteral("  ")});
}

// While the modal slides away it is still there.
TEST_F(ModalTextFieldHostTest, AQuickSecondPressDoesNotEnterTheTextAgain) {
    present();
    QApplication::setEffectEnabled(Qt::UI_General, true);
    QTest::keyClicks(field, QStringLiteral("Setup"));
    const QPointer<QAbstractButton> done = buttonIn(host, QStringLiteral("Done"));
    QTest::mouseClick(done, Qt::LeftButton);
    ASSERT_TRUE(done && done->isVisible());
    QTest::mouseClick(done, Qt::LeftButton);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(entered.size(), 1);
}

TEST_F(ModalTextFieldHostTest, RaisesAnAlertForAnEmptyText) {
    present();
    QTest::keyClick(field, Qt::Key_Return);
    QCoreApplication::processEvents();
    ASSERT_NE(alert(), nullptr);
    EXPECT_TRUE(host->findChild<ModalTextFieldView*>()->showErr());
    QStringList texts;
    for (const auto* label : alert()->findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("Oops!")));
    EXPECT_TRUE(texts.contains(QStringLiteral("You need a name for your segment.")));
    QTest::mouseClick(buttonIn(alert(), QStringLiteral("Dismiss")), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !host->findChild<ModalTextFieldView*>()->showErr(); }));
    EXPECT_EQ(alert(), nullptr);
    EXPECT_TRUE(entered.isEmpty());
    EXPECT_EQ(root.presentedViewController(), navigation);
}

TEST_F(ModalTextFieldHostTest, CanBeCancelled) {
    present();
    QTest::mouseClick(buttonIn(navigation, QStringLiteral("Cancel")), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return navigation.isNull(); }));
    EXPECT_TRUE(entered.isEmpty());
}

} // namespace quillet
