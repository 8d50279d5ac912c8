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
    QWidget ground;
    ground.setPalette(QColor(Qt::red));
    button.setParent(&ground);
    button.move(0, 0);
    button.show();
    ground.resize(button.size());
    ground.show();
    const QRect view = button.view().geometry();
    const auto isCovered = [&](QPoint at) { return ground.grab().toImage().pixelColor(at) != Qt::red; };
    const QPoint upper(view.center().x(), view.top() + 1);
    const QPoint lower(view.center().x(), view.bottom() - 1);
    EXPECT_TRUE(isCovered(upper) && isCovered(lower));
    QTest::mousePress(&button, Qt::LeftButton);
    scaleAfter(150);
    EXPECT_FALSE(isCovered(upper) || isCovered(lower));
    EXPECT_TRUE(isCovered(upper + QPoint(0, 4)) && isCovered(lower - QPoint(0, 4)));
    QTest::mouseRelease(&button, Qt::LeftButton);
    button.setParent(nullptr);
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
