#pragma once

#include "platform/screens/list/ListView.h"
#include "platform/screens/list/TypeAhead.h"

namespace platform {

// What the keyboard does in a list.
class ListKeys {
public:
    explicit ListKeys(ListView& list)
        : m_list(list) {}

    // Whether the key does something here.
    bool press(const QKeyEvent& event);
    void search(const QString& text);
    // The row to go to from the current one.
    QModelIndex target(QAbstractItemView::CursorAction action) const;

    // Between the current row and its button; false where the focus leaves the list.
    bool tab(bool next);

    bool isOnButton() const { return m_isOnButton; }

    void leaveButton() { m_isOnButton = false; }

private:
    enum class Direction { Up, Down };

    bool go(const QModelIndex& index);
    bool activate();
    bool askToDelete();
    // Opens at the way inward, closes at the way outward, or goes on to the row below or above.
    bool goInward();
    bool goOutward();
    bool type(const QKeyEvent& event);
    QModelIndex choosableFrom(int ordinal, Direction direction) const;
    QModelIndex onePageFrom(const QModelIndex& index, Direction direction) const;

    ListView& m_list;
    TypeAhead m_typeAhead;
    bool m_isOnButton = false;
};

} // namespace platform
