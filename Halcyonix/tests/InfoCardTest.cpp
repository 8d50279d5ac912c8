#include "Halcyonix/InfoCard.h"

#include "Halcyonix/Environment.h"
#include "Halcyonix/FilledButton.h"
#include "platform/screens/controls/PressSqueeze.h"
#include "platform/screens/controls/SymbolButton.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

namespace halcyonix {

namespace {

struct Shown {
    explicit Shown(std::optional<QString> cta)
        : card({.systemImageName = QStringLiteral("tag.fill"),
                .imageName = {},
                .title = QStringLiteral("Tags"),
                .bodyText = QStringLiteral("Sort your snippets."),
                .cta = std::move(cta)},
               [this] { actions++; }) {
        card.resize(360, card.heightForWidth(360));
        card.show();
    }

    int actions = 0;
    InfoCard card;
};

} // namespace

TEST(InfoCard, RunsItsActionAtATapOnTheCard) {
    Shown shown(std::nullopt);
    EXPECT_EQ(shown.card.findChild<FilledButton*>(), nullptr);
    QTest::mouseClick(&shown.card, Qt::LeftButton);
    EXPECT_EQ(shown.actions, 1);
    QTest::keyClick(&shown.card, Qt::Key_Return);
    QTest::keyClick(&shown.card, Qt::Key_Space);
    EXPECT_EQ(shown.actions, 3);
}

TEST(InfoCard, RunsItsActionAtItsButton) {
    Shown shown(QStringLiteral("Add a Tag"));
    auto* button = shown.card.findChild<FilledButton*>();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), QStringLiteral("Add a Tag"));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(shown.actions, 1);
    EXPECT_EQ(shown.card.focusPolicy(), Qt::NoFocus) << "the focus stops at the button";
}

TEST(InfoCard, IsClosedByItsMarkWithoutTheAction) {
    Shown shown(std::nullopt);
    auto* mark = shown.card.findChild<platform::SymbolButton*>();
    EXPECT_EQ(mark->accessibleName(), QStringLiteral("Close"));
    EXPECT_GE(mark->height(), 44);
    QTest::mouseClick(mark, Qt::LeftButton);
    EXPECT_FALSE(shown.card.isVisible());
    EXPECT_EQ(shown.actions, 0);
}

TEST(InfoCard, IsAButtonToAssistiveTools) {
    Shown shown(std::nullopt);
    auto* accessible = QAccessible::queryAccessibleInterface(&shown.card);
    EXPECT_EQ(accessible->role(), QAccessible::PushButton);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Tags"));
    EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("Sort your snippets."));
}

TEST(SquishyButtonStyle, ShrinksToNinetyEightHundredthsAndComesBack) {
    FilledButton button(QStringLiteral("Go"), platform::Asset::Accent);
    button.show();
    auto* squeeze = button.findChild<platform::PressSqueeze*>();
    QTest::mousePress(&button, Qt::LeftButton);
    squeeze->animation().setCurrentTime(150);
    EXPECT_DOUBLE_EQ(squeeze->scale(), 0.98);
    QTest::mouseRelease(&button, Qt::LeftButton);
    squeeze->animation().setCurrentTime(150);
    EXPECT_DOUBLE_EQ(squeeze->scale(), 1);
}

TEST(Environment, TintsWhatHasNoColourOfItsOwn) {
    EXPECT_EQ(Environment::shared().primaryColor, platform::Asset::HalcyonixBlue);
    Environment::shared().primaryColor = platform::Asset::SystemRed;
    Shown shown(QStringLiteral("Add a Tag"));
    const QImage picture = shown.card.findChild<FilledButton*>()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 6), platform::color(platform::Asset::SystemRed));
}

} // namespace halcyonix
