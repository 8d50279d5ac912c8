#include "Quillet/controls/ToolbarTextField.h"

#include "Quillet/controls/QuilletTextField.h"

#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

namespace quillet {

TEST(ToolbarTextField, ClosesTheKeyboardAndTellsSo) {
    ToolbarTextField field;
    field.show();
    field.activateWindow();
    field.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    QSignalSpy done(&field.accessory(), &halcyonix::KeyboardAccessory::donePressed);
    auto& button = field.accessory().toolbar().doneButton();
    const QImage picture = button.grab().toImage();
    EXPECT_EQ(picture.pixelColor(12, 16), platform::color(platform::Asset::Accent));
    EXPECT_NE(picture.pixelColor(0, 0), platform::color(platform::Asset::Accent)) << "round corners";
    button.click();
    EXPECT_EQ(done.count(), 1);
    EXPECT_FALSE(field.hasFocus());
}

TEST(PaddedUITextField, KeepsItsInsets) {
    PaddedUITextField field(QMargins(1, 2, 3, 4));
    EXPECT_EQ(field.insets(), QMargins(1, 2, 3, 4));
    EXPECT_EQ(field.leftInset(), 1);
    EXPECT_EQ(field.topInset(), 2);
    EXPECT_EQ(field.rightInset(), 3);
    EXPECT_EQ(field.bottomInset(), 4);
    EXPECT_EQ(field.textMargins(), field.insets());
    EXPECT_GE(field.sizeHint().height(), 44);
}

TEST(QuilletTextField, IsNamedByItsTitle) {
    QuilletTextField field(QStringLiteral("Name"), QStringLiteral("My snippet"));
    field.show();
    auto* line = field.findChild<QLineEdit*>();
    EXPECT_EQ(line->placeholderText(), QStringLiteral("My snippet"));
    EXPECT_GE(line->height(), 44);
    auto* accessible = QAccessible::queryAccessibleInterface(line);
    EXPECT_EQ(accessible->role(), QAccessible::EditableText);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    EXPECT_EQ(field.focusProxy(), line);
}

TEST(QuilletTextField, BindsItsText) {
    QuilletTextField field(QStringLiteral("Name"), {});
    QSignalSpy changes(&field, &QuilletTextField::textChanged);
    QSignalSpy returns(&field, &QuilletTextField::returnPressed);
    auto* line = field.findChild<QLineEdit*>();
    QTest::keyClicks(line, QStringLiteral("ab"));
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(field.text(), QStringLiteral("ab"));
    EXPECT_EQ(changes.last().first().toString(), QStringLiteral("ab"));
    EXPECT_EQ(returns.count(), 1);
    field.setText(QStringLiteral("c"));
    EXPECT_EQ(line->text(), QStringLiteral("c"));
}

} // namespace quillet
