#include "Quillet/controls/BorderedButton.h"
#include "Quillet/controls/BorderedLabel.h"
#include "platform/screens/appearance/Palette.h"
#include "platform/screens/controls/PressSqueeze.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <gtest/gtest.h>

namespace quillet {

namespace {

// Points of the border along a vertical line through the upper edge, left of the text.
int borderWidth(QWidget& widget) {
    const QImage picture = widget.grab().toImage();
    const QColor border = platform::color(platform::Asset::Accent);
    int width = 0;
    for (int y = 0; y < picture.height() / 2; y++)
        width += picture.pixelColor(30, y) == border;
    return width;
}

} // namespace

TEST(BorderedButton, HasABorderByItsMode) {
    BorderedButton button;
    button.resize(200, 50);
    EXPECT_EQ(button.mode(), BorderedButton::Mode::little);
    EXPECT_EQ(borderWidth(button), 2);
    button.setMode(BorderedButton::Mode::big);
    EXPECT_EQ(borderWidth(button), 4);
}

TEST(BorderedButton, HasASixteenPointFontThatGrowsWithTheSystems) {
    QFont usual = QApplication::font();
    usual.setPixelSize(13);
    QApplication::setFont(usual);
    BorderedButton button(QStringLiteral("Add"));
    BorderedLabel label(QStringLiteral("C++"));
    EXPECT_EQ(button.font().pixelSize(), 16);
    EXPECT_EQ(label.label().font().pixelSize(), 16);
    const int height = button.sizeHint().height();
    EXPECT_GE(height, 44);
    usual.setPixelSize(40);
    QApplication::setFont(usual);
    QCoreApplication::processEvents();
    EXPECT_EQ(button.font().pixelSize(), 48);
    EXPECT_EQ(label.label().font().pixelSize(), 48);
    EXPECT_GT(button.sizeHint().height(), height);
}

TEST(BorderedButton, IsPressedByTheKeyboardWithTheSameSqueeze) {
    BorderedButton button(QStringLiteral("Add"));
    button.show();
    int clicks = 0;
    QObject::connect(&button, &QAbstractButton::clicked, [&] { clicks++; });
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        auto* squeeze = button.findChild<platform::PressSqueeze*>();
        QTest::keyPress(&button, key);
        squeeze->animation().setCurrentTime(150);
        EXPECT_DOUBLE_EQ(squeeze->scale(), 0.98);
        QTest::keyRelease(&button, key);
        squeeze->animation().setCurrentTime(150);
        EXPECT_DOUBLE_EQ(squeeze->scale(), 1);
    }
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->role(), QAccessible::PushButton);
}

TEST(BorderedLabel, CentresItsTextBetweenInsets) {
    BorderedLabel label(QStringLiteral("Swift"));
    label.resize(160, 50);
    label.show();
    EXPECT_EQ(label.text(), QStringLiteral("Swift"));
    EXPECT_EQ(label.label().geometry().left(), 8);
    EXPECT_EQ(label.label().geometry().right(), 160 - 1 - 8);
    EXPECT_EQ(label.label().alignment(), Qt::AlignCenter);
    EXPECT_EQ(borderWidth(label), 4);
}

} // namespace quillet
