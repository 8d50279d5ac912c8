#pragma once

#include "Tessarine/view/RowLayout.h"

#include <cstddef>
#include <list>
#include <unordered_map>

namespace tessarine {

// The layouts of the rows that were used last. Rows keep their text alone, some ten times less than a layout,
// which is made again when it is asked for. Rows that look the same have one layout: so a row that is set
// anew as it was has its layout already. Main thread.
class RowLayouts {
public:
    // The reference dies with the next call.
    const RowLayout& layoutOf(const RowText& row);

    // For what interfaces colours are. Layouts are made for one style at a time.
    void setStyle(UserInterfaceStyle style);

private:
    struct Entry {
        Entry(const RowText& ownRow, UserInterfaceStyle style)
            : row(ownRow)
            , layout(ownRow, style) {}

        const RowText row;
        const RowLayout layout;
    };

    using Entries = std::list<Entry>;

    // Of what the pointers lead to.
    struct Hash {
        std::size_t operator()(const RowText* row) const;
    };

    struct Equal {
        bool operator()(const RowText* a, const RowText* b) const { return *a == *b; }
    };

    void makeRoom();

    UserInterfaceStyle m_style = UserInterfaceStyle::Light;
    Entries m_entries;                                                           // the last used one first
    std::unordered_map<const RowText*, Entries::iterator, Hash, Equal> m_places; // of their own rows
    qsizetype m_units = 0;                                                       // of all
};

} // namespace tessarine
