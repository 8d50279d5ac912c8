#include "platform/screens/menus/Menu.h"

#include <QtGui/QAction>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <gtest/gtest.h>

using namespace platform;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

// A line an action, "-" for a line, "-title" for a titled one, indented below its menu.
QStringList dump(const QMenu& menu, const QString& indent = {}) {
    QStringList lines;
    for (const auto* action : menu.actions()) {
        lines += indent + (action->isSeparator() ? u'-' + action->text() : action->text());
        if (const auto* inner = action->menu()) lines += dump(*inner, indent + u' ');
    }
    return lines;
}

TEST(MenuTest, InlineMenusStandAmongTheEntriesAndOthersOpen) {
    const Menu order{q("Sort"), {MenuAction{q("A & B")}}, Menu::Display::Inline};
    const Menu deeper{q("More"), {MenuAction{q("C")}}};
    const Menu kind{q("Kind"), {MenuAction{q("D")}}, Menu::Display::Inline};
    const auto menu = makeMenu({q("Sort"), {order, deeper, kind}}, nullptr);
    EXPECT_EQ(dump(*menu),
              QStringList({q("-"), q("A && B"), q("-"), q("More"), q(" C"), q("-Kind"), q("D"), q("-")}));
    const auto neighbours = makeMenu({q("Sort"), {order, kind}}, nullptr);
    EXPECT_EQ(dump(*neighbours), QStringList({q("-"), q("A && B"), q("-Kind"), q("D"), q("-")}));
}

TEST(MenuTest, AHandlerRunsWhenTheMenuIsGone) {
    QWidget window;
    window.show();
    bool isGone = false;
    bool ran = false;
    MenuAction action{q("Delete")};
    action.symbol = q("trash");
    action.role = MenuAction::Role::Destructive;
    action.shortcut = q("Ctrl+D");
    action.handler = [&] {
        ran = true;
        isGone = window.findChildren<QMenu*>().isEmpty();
    };
    popUpMenu({{}, {action}}, &window, {20, 20});
    auto* menu = window.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    ASSERT_TRUE(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().constFirst()).center());
    EXPECT_FALSE(ran);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }));
    EXPECT_TRUE(isGone);
}

} // namespace
