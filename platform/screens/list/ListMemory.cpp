#include "platform/screens/list/ListMemory.h"

#include "platform/screens/list/RowContent.h"

#include <QtCore/QHash>

#include <algorithm>
#include <limits>
#include <map>

namespace platform {

namespace {

// Rows to look through on each side of where a row was, before others are tried.
constexpr int nearby = 500;
constexpr int everywhere = std::numeric_limits<int>::max();

// So many rows on each side of one may go together with it before the row above takes its place.
constexpr int heirsOnASide = 8;

QModelIndex findAround(const QAbstractItemModel& model, const QModelIndex& parent, const QString& key,
                       int row, int reach) {
    const int count = model.rowCount(parent);
    const int furthest = std::min(reach, std::max(row, count - row));
    for (int distance = 0; distance <= furthest; ++distance)
        for (const int at : {row - distance, row + distance}) {
            if (at < 0 || at >= count) continue;
            const QModelIndex index = model.index(at, 0, parent);
            if (index.data(ListView::KeyRole).toString() == key) return index;
        }
    return {};
}

} // namespace

ListMemory::Place ListMemory::placeOf(const QModelIndex& index) {
    Place place;
    for (QModelIndex at = index; at.isValid(); at = at.parent()) {
        const QString key = at.data(ListView::KeyRole).toString();
        if (key.isEmpty()) return {};
        place.keys.prepend(key);
        place.rows.insert(place.rows.begin(), at.row());
    }
    return place;
}

QModelIndex ListMemory::find(const QAbstractItemModel& model, const Place& place, int reach) {
    QModelIndex index;
    for (std::size_t level = 0; level < place.rows.size(); ++level) {
        index = findAround(model, index, place.keys[static_cast<qsizetype>(level)], place.rows[level], reach);
        if (!index.isValid()) break;
    }
    return index;
}

std::vector<ListMemory::Place> ListMemory::heirsOf(const QModelIndex& index) {
    std::vector<Place> heirs;
    for (QModelIndex at = index; at.isValid(); at = at.parent()) {
        if (at != index) heirs.push_back(placeOf(at));
        for (const int side : {1, -1})
            for (int step = 1; step <= heirsOnASide; ++step) {
                const QModelIndex heir = at.siblingAtRow(at.row() + side * step);
                if (heir.isValid() && isChoosable(heir)) heirs.push_back(placeOf(heir));
            }
    }
    return heirs;
}

void ListMemory::remember(const Rows& rows) {
    m_current = placeOf(rows.current);
    m_heirs = heirsOf(rows.current);
    m_selected = placeOf(rows.selected);
    m_viewTop = rows.viewTop;
    m_seen.clear();
    for (const auto& row : rows.inView)
        m_seen.push_back({placeOf(row.index), row.top - rows.viewTop});
}

QModelIndex ListMemory::current(const QAbstractItemModel& model) const {
    if (const QModelIndex same = find(model, m_current, everywhere); same.isValid()) return same;
    for (const Place& place : m_heirs)
        if (const QModelIndex heir = find(model, place, nearby); heir.isValid()) return heir;
    return {};
}

bool ListMemory::wasCurrent(const QModelIndex& index) const {
    return placeOf(index).keys == m_current.keys;
}

QModelIndex ListMemory::selected(const QAbstractItemModel& model) const {
    return find(model, m_selected, everywhere);
}

int ListMemory::viewTop(const QAbstractItemModel& model, const VisibleRows& rows) const {
    for (const auto& seen : m_seen)
        if (const auto row = rows.rowOf(find(model, seen.place, nearby))) return row->top - seen.top;
    return viewTopAmongAll(rows);
}

// One pass, however many rows were in view.
int ListMemory::viewTopAmongAll(const VisibleRows& rows) const {
    QMultiHash<QString, const SeenPlace*> wanted; // by the row's own key
    for (const auto& seen : m_seen)
        if (!seen.place.keys.isEmpty()) wanted.insert(seen.place.keys.last(), &seen);
    std::map<const SeenPlace*, QModelIndex> found;
    for (int ordinal = 0; !wanted.isEmpty() && ordinal < rows.count(); ++ordinal) {
        const QModelIndex index = rows.at(ordinal);
        const auto [begin, end] = wanted.equal_range(index.data(ListView::KeyRole).toString());
        for (auto seen = begin; seen != end; ++seen)
            if (placeOf(index).keys == (*seen)->place.keys) found.emplace(*seen, index);
    }
    if (found.empty()) return m_viewTop;
    const auto& [topmost, index] = *found.begin();
    return rows.rowOf(index)->top - topmost->top;
}

} // namespace platform
