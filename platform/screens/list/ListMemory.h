#pragma once

#include "platform/screens/list/VisibleRows.h"

#include <vector>

namespace platform {

// What a reset of the model must leave where it is: the rows in view, the current row and the selected one,
// known by their keys and those of the rows above them.
class ListMemory {
public:
    struct Rows {
        QModelIndex current;
        QModelIndex selected;
        std::vector<VisibleRow> inView;
        int viewTop = 0;
    };

    void remember(const Rows& rows);

    // After the reset. Where the row is gone, the one that takes its place: who stood behind it, else before
    // it, else the row above it.
    QModelIndex current(const QAbstractItemModel& model) const;
    // After the reset: whether it is the same row, and not its heir.
    bool wasCurrent(const QModelIndex& index) const;
    // After the reset; invalid where it is gone.
    QModelIndex selected(const QAbstractItemModel& model) const;
    // Where the view must begin for the topmost row that is still visible to stand where it stood.
    int viewTop(const QAbstractItemModel& model, const VisibleRows& rows) const;

private:
    struct Place {
        QStringList keys;      // from the top level inward; empty for no row
        std::vector<int> rows; // where they were
    };

    struct SeenPlace {
        Place place;
        int top = 0; // below the top edge of the view
    };

    static Place placeOf(const QModelIndex& index);
    static std::vector<Place> heirsOf(const QModelIndex& index);
    int viewTopAmongAll(const VisibleRows& rows) const;
    static QModelIndex find(const QAbstractItemModel& model, const Place& place, int reach);

    Place m_current;
    std::vector<Place> m_heirs; // who takes its place, in this order
    Place m_selected;
    std::vector<SeenPlace> m_seen;
    int m_viewTop = 0;
};

} // namespace platform
