#include "Quillet/controls/FancyButton.h"

#include "Quillet/controls/GradientView.h"
#include "platform/screens/appearance/Palette.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

namespace quillet {

namespace {

class FancyButtonTest : public ::testing::Test, public FancyButtonDelegate {
protected:
    FancyButtonTest() {
        QApplication::setEffectEnabled(Qt::UI_General, true);
        button.delegate = this;
        button.setSymbol(QStringLiteral("tag.fill"));
        button.setSecondaryText(QStringLiteral("Language"));
        button.setMainText(QStringLiteral("Swift"));
        button.resize(button.sizeHint().grownBy({0, 0, 60, 0}));
        button.show();
    }

    void didTap(FancyButton& tapped) override { taps += &tapped == &button; }

    qreal scaleAfter(int milliseconds) {
        button.squeeze().animation().setCurrentTime(milliseconds);
        return button.squeeze().scale();
    }

    FancyButton button;
    int taps = 0;
};

} // namespace

TEST_F(FancyButtonTest, ShrinksUnderThePressAndTapsWhenItEndsInside) {
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(button.squeeze().animation().duration(), 150);
    EXPECT_DOUBLE_EQ(scaleAfter(75), 0.95);
    EXPECT_DOUBLE_EQ(scaleAfter(150), 0.9);
    EXPECT_EQ(taps, 0);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_EQ(taps, 1);
    EXPECT_EQ(button.squeeze().animation().duration(), 150);
    EXPECT_DOUBLE_EQ(scaleAfter(75), 0.95);
    EXPECT_DOUBLE_EQ(scaleAfter(150), 1);
}

TEST_F(FancyButtonTest, TapsNotWhenThePressEndsOutside) {
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseMove(&button, QPoint(-50, -50));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(-50, -50));
    EXPECT_EQ(taps, 0);
    EXPECT_DOUBLE_EQ(scaleAfter(150), 1);
}

TEST_F(FancyButtonTest, TapsByTouchAndByKeys) {
    static auto* const device = QTest::createTouchDevice();
    QTest::touchEvent(&button, device).press(0, button.rect().center());
    QTest::touchEvent(&button, device).release(0, button.rect().center());
    EXPECT_EQ(taps, 1);
    QTest::keyPress(&button, Qt::Key_Return);
    EXPECT_DOUBLE_EQ(scaleAfter(150), 0.9);
    QTest::keyRelease(&button, Qt::Key_Return);
    EXPECT_EQ(taps, 2);
}

TEST_F(FancyButtonTest, IsAtOnceInItsSizeWhereMotionIsReduced) {
    QApplication::setEffectEnabled(Qt::UI_General, false);
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(button.squeeze().scale(), 0.9);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(button.squeeze().scale(), 1);
}

TEST_F(FancyButtonTest, ShowsItselfShrunkAndCentred) {
    const QRect view = button.view().geometry();
    const QPoint edge(view.center().x(), view.bottom() - 1);
    EXPECT_GT(button.grab().toImage().pixelColor(edge).alpha(), 0);
    QTest::mousePress(&button, Qt::LeftButton);
    scaleAfter(150);
    QImage shrunk(button.size(), QImage::Format_ARGB32_Premultiplied);
    shrunk.fill(Qt::transparent);
    button.render(&shrunk, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(shrunk.pixelColor(edge).alpha(), 0);
    EXPECT_EQ(shrunk.pixelColor(view.center().x(), view.top() + 1).alpha(), 0);
    EXPECT_EQ(shrunk.pixelColor(button.rect().center() + QPoint(0, 10)).alpha(), 255);
}

TEST_F(FancyButtonTest, RunsBetweenTheGradientsEnds) {
    GradientView view;
    view.resize(200, 60);
    const QImage picture = view.grab().toImage();
    const auto isNear = [&](QPoint at, platform::Asset asset) {
        const QColor found = picture.pixelColor(at);
        const QColor wanted = platform::color(asset);
        return std::abs(found.red() - wanted.red()) + std::abs(found.green() - wanted.green()) +
                   std::abs(found.blue() - wanted.blue()) <
               30;
    };
    EXPECT_TRUE(isNear({8, 8}, platform::Asset::GradientStart));
    EXPECT_TRUE(isNear({191, 51}, platform::Asset::GradientEnd));
}

TEST_F(FancyButtonTest, IsNamedByBothOfItsLines) {
    auto* accessible = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(accessible->role(), QAccessible::PushButton);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Language, Swift"));
    EXPECT_GE(button.height(), 44);
}

} // namespace quillet
