#include "Halcyonix/UIDoneTextField.h"

#include "Halcyonix/UIDoneTextView.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <gtest/gtest.h>

namespace halcyonix {

namespace {

template <typename Field>
class DoneTest : public ::testing::Test {
protected:
    DoneTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&other);
        column->addWidget(&field);
        window.resize(1280, 800);
        window.show();
        window.activateWindow();
        other.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    static void tap(QWidget& widget) {
        static auto* const device = QTest::createTouchDevice(); // lives as long as the process
        const QPoint at = widget.rect().center();
        QTest::touchEvent(&widget, device).press(0, at);
        QTest::touchEvent(&widget, device).release(0, at);
    }

    bool hasToolbar() {
        auto* toolbar = window.template findChild<InputToolbar*>();
        return toolbar && toolbar->isVisible();
    }

    QWidget window;
    QLineEdit& other = *new QLineEdit;
    Field& field = *new Field;
};

using Fields = ::testing::Types<UIDoneTextField, UIDoneTextView>;
TYPED_TEST_SUITE(DoneTest, Fields);

} // namespace

TYPED_TEST(DoneTest, HasItsToolbarWhileItIsWrittenInByTouch) {
    EXPECT_FALSE(this->hasToolbar());
    this->tap(this->field);
    EXPECT_TRUE(this->field.hasFocus());
    EXPECT_TRUE(this->hasToolbar());
    this->tap(this->other);
    EXPECT_FALSE(this->hasToolbar());
}

TYPED_TEST(DoneTest, HasNoToolbarForMouseAndKeyboard) {
    QTest::mouseClick(&this->field, Qt::LeftButton);
    EXPECT_FALSE(this->hasToolbar());
    this->other.setFocus();
    QTest::keyClick(&this->other, Qt::Key_Tab);
    EXPECT_TRUE(this->field.hasFocus());
    EXPECT_FALSE(this->hasToolbar());
}

TYPED_TEST(DoneTest, MakesTheToolbarWhenItIsNeeded) {
    this->field.setCustomPlaceholderText(QStringLiteral("Title"));
    EXPECT_EQ(this->window.template findChild<InputToolbar*>(), nullptr);
    EXPECT_EQ(this->field.placeHolderButton().text(), QStringLiteral("Title"));
    EXPECT_EQ(&this->field.inputToolbar().doneButton(), &this->field.doneButton());
    EXPECT_FALSE(this->hasToolbar());
}

TYPED_TEST(DoneTest, HasTheToolbarsMeasures) {
    this->tap(this->field);
    auto& toolbar = this->field.inputToolbar();
    EXPECT_EQ(toolbar.size(), QSize(672, 44)) << "a readable width";
    EXPECT_NEAR(toolbar.geometry().center().x(), 640, 1);
    EXPECT_EQ(toolbar.geometry().bottom(), 799 - 8);
    auto& button = this->field.doneButton();
    EXPECT_EQ(button.size(), QSize(66, 33));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Close Keyboard"));
    EXPECT_GT(button.geometry().left(), toolbar.width() / 2);
    this->window.resize(390, 844);
    QCoreApplication::processEvents();
    EXPECT_EQ(toolbar.geometry(), QRect(16, 844 - 44 - 8, 358, 44));
    this->window.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    EXPECT_LT(button.geometry().right(), toolbar.width() / 2);
}

TYPED_TEST(DoneTest, GivesUpTheFocusAtItsButton) {
    this->window.resize(390, 700); // all of it on the screen, which touches need
    this->tap(this->field);
    this->tap(this->field.doneButton());
    EXPECT_FALSE(this->field.hasFocus());
    EXPECT_FALSE(this->hasToolbar());
}

TYPED_TEST(DoneTest, TakesTheToolbarAlong) {
    this->tap(this->field);
    delete &this->field;
    EXPECT_EQ(this->window.template findChild<InputToolbar*>(), nullptr);
}

} // namespace halcyonix
