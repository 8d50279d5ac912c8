#include "Quillet/browsing/SortMenu.h"

namespace quillet {

namespace {

platform::MenuAction order(const QString& symbol, const QString& name, bool isInForce,
                           std::function<void()> choose) {
    return {isInForce ? name + QStringLiteral(" ·") : name, symbol, std::move(choose)};
}

} // namespace

platform::Menu sortMenu(qint64 sortIndex, const std::function<void(qint64)>& setSort) {
    const bool isByDate = sortIndex == 0;
    platform::Menu orders{QStringLiteral("Sort"), {}, platform::Menu::Display::Inline};
    orders.entries.emplace_back(order(QStringLiteral("textformat.abc"), QStringLiteral("Name"), !isByDate,
                                      [setSort] { setSort(1); }));
    orders.entries.emplace_back(order(QStringLiteral("calendar"), QStringLiteral("Last Modified"), isByDate,
                                      [setSort] { setSort(0); }));
    return {QStringLiteral("Sort"), {std::move(orders)}};
}

} // namespace quillet
