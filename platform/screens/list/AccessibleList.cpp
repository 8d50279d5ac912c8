#include "platform/screens/list/AccessibleList.h"

#include "platform/screens/list/AccessibleRow.h"
#include "platform/screens/list/ListKeys.h"

namespace platform {

namespace {

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* list = qobject_cast<ListView*>(object);
    // The toolkit takes it and ends it with the list.
    return list ? std::make_unique<AccessibleList>(*list).release() : nullptr;
}

} // namespace

void AccessibleList::install() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
}

AccessibleList* AccessibleList::ifActive(const ListView& list) {
    if (!QAccessible::isActive()) return nullptr;
    return static_cast<AccessibleList*>(QAccessible::queryAccessibleInterface(const_cast<ListView*>(&list)));
}

AccessibleList::AccessibleList(ListView& list)
    : QAccessibleWidget(&list, QAccessible::Tree)
    , m_list(list) {}

AccessibleList::~AccessibleList() {
    for (const auto id : std::as_const(m_rows))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* AccessibleList::rowOf(const QModelIndex& index) {
    if (!index.isValid()) return nullptr;
    auto& id = m_rows[index];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(
            std::make_unique<AccessibleRow>(*this, index).release()); // taken
    return QAccessible::accessibleInterface(id);
}

void AccessibleList::forgetGone() {
    m_rows.removeIf([](auto row) {
        if (row.key().isValid()) return false;
        QAccessible::deleteAccessibleInterface(row.value());
        return true;
    });
}

void AccessibleList::tell(QAccessible::Event event, const QModelIndex& index) {
    if (auto* row = rowOf(index)) {
        QAccessibleEvent told(row, event);
        QAccessible::updateAccessibility(&told);
    }
}

void AccessibleList::tellFocus() {
    auto* focused = focusChild();
    if (!focused) return;
    QAccessibleEvent told(focused, QAccessible::Focus);
    QAccessible::updateAccessibility(&told);
}

void AccessibleList::tellRowsBelow(const QModelIndex& parent) {
    forgetGone();
    auto* below = parent.isValid() ? rowOf(parent) : this;
    QAccessibleEvent told(below, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&told);
}

void AccessibleList::tellChecks() {
    for (const auto id : std::as_const(m_rows))
        static_cast<AccessibleRow*>(QAccessible::accessibleInterface(id))->tellIfChecked();
}

void AccessibleList::tellOpenness(const QModelIndex& index) {
    QAccessible::State changed;
    changed.expanded = changed.collapsed = true;
    if (auto* row = rowOf(index)) {
        QAccessibleStateChangeEvent told(row, changed);
        QAccessible::updateAccessibility(&told);
    }
}

int AccessibleList::childCount() const {
    return m_list.model() ? m_list.model()->rowCount() : 0;
}

QAccessibleInterface* AccessibleList::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    return const_cast<AccessibleList*>(this)->rowOf(m_list.model()->index(index, 0));
}

int AccessibleList::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const AccessibleRow*>(child);
    return row && !row->index().parent().isValid() ? row->index().row() : -1;
}

QAccessibleInterface* AccessibleList::childAt(int x, int y) const {
    const QPoint at = m_list.viewport()->mapFromGlobal(QPoint(x, y));
    return const_cast<AccessibleList*>(this)->rowOf(m_list.indexAt(at));
}

QAccessibleInterface* AccessibleList::focusChild() const {
    if (!m_list.hasFocus()) return nullptr;
    auto* row = const_cast<AccessibleList*>(this)->rowOf(m_list.currentIndex());
    return row && m_list.m_keys->isOnButton() ? row->child(0) : row;
}

} // namespace platform
