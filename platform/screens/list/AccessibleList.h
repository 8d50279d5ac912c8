#pragma once

#include "platform/screens/list/ListView.h"

#include <QtCore/QHash>
#include <QtWidgets/QAccessibleWidget>

namespace platform {

// A list as assistive tools see it: a tree whose rows have the rows below them as children while they are
// open. A row is made when it is asked for, so a long list costs nothing where nobody asks.
class AccessibleList : public QAccessibleWidget {
public:
    // Lists are known to assistive tools from the first call on.
    static void install();

    // Null while no assistive tool runs.
    static AccessibleList* ifActive(const ListView& list);

    explicit AccessibleList(ListView& list);
    ~AccessibleList() override;

    ListView& list() const { return m_list; }

    // Null for none. Stays the same as long as the row does.
    QAccessibleInterface* rowOf(const QModelIndex& index);
    // The rows that are no more.
    void forgetGone();

    void tell(QAccessible::Event event, const QModelIndex& index);
    void tellOpenness(const QModelIndex& index);
    void tellFocus();
    // Some have come or gone.
    void tellRowsBelow(const QModelIndex& parent);
    // Of the rows known here, those checked or unchecked since they were last told.
    void tellChecks();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    ListView& m_list;
    QHash<QPersistentModelIndex, QAccessible::Id> m_rows;
};

} // namespace platform
