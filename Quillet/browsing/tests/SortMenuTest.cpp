#include "Quillet/browsing/SortMenu.h"

#include <gtest/gtest.h>

using namespace quillet;
using platform::Menu;
using platform::MenuAction;

namespace {

const MenuAction& order(const Menu& outer, std::size_t at) {
    return std::get<MenuAction>(std::get<Menu>(outer.entries.at(0)).entries.at(at));
}

TEST(SortMenuTest, AnInlineMenuOfTwoOrdersStandsInTheMenuAndMarksTheOneInForce) {
    for (const qint64 sortIndex : {0, 1, 7}) {
        const Menu menu = sortMenu(sortIndex, [](qint64) {});
        EXPECT_EQ(menu.title, QStringLiteral("Sort"));
        ASSERT_EQ(menu.entries.size(), 1U);
        const auto& orders = std::get<Menu>(menu.entries[0]);
        EXPECT_EQ(orders.title, QStringLiteral("Sort"));
        EXPECT_EQ(orders.display, Menu::Display::Inline);
        ASSERT_EQ(orders.entries.size(), 2U);
        const bool isByDate = sortIndex == 0;
        EXPECT_EQ(order(menu, 0).title, isByDate ? QStringLiteral("Name") : QStringLiteral("Name ·"));
        EXPECT_EQ(order(menu, 0).symbol, QStringLiteral("textformat.abc"));
        EXPECT_EQ(order(menu, 1).title,
                  isByDate ? QStringLiteral("Last Modified ·") : QStringLiteral("Last Modified"));
        EXPECT_EQ(order(menu, 1).symbol, QStringLiteral("calendar"));
    }
}

TEST(SortMenuTest, NameSetsOneAndLastModifiedZero) {
    std::vector<qint64> set;
    const Menu menu = sortMenu(1, [&set](qint64 sortIndex) { set.push_back(sortIndex); });
    order(menu, 0).handler();
    order(menu, 1).handler();
    EXPECT_EQ(set, (std::vector<qint64>{1, 0}));
}

} // namespace
