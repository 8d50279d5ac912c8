#pragma once

#include "Tessarine/view/RowLayout.h"

#include <list>
#include <memory>
#include <unordered_map>

namespace tessarine {

// The layouts of the rows that were used last. Rows keep their text alone, some ten times less than a layout,
// which is made again when it is asked for. Rows are known by their addresses and have to say when they go.
// Main thread.
class RowLayouts {
public:
    // The reference dies with the next call.
    const RowLayout& layoutOf(const RowText& row);

    void remove(const RowText& row);

    // For what interfaces colours are. Layouts are made for one style at a time.
    void setStyle(UserInterfaceStyle style);

private:
    struct Entry {
        Entry(const RowText& ownRow, UserInterfaceStyle style)
            : row(ownRow)
            , layout(ownRow, style) {}

        const RowText& row;
        RowLayout layout;
    };

    using Entries = std::list<Entry>;

    void erase(Entries::iterator entry);
    void makeRoom();

    UserInterfaceStyle m_style = UserInterfaceStyle::Light;
    Entries m_entries; // the last used one first
    std::unordered_map<const RowText*, Entries::iterator> m_places;
    qsizetype m_units = 0; // of all
};

} // namespace tessarine
