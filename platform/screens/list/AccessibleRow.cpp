#include "platform/screens/list/AccessibleRow.h"

#include "platform/screens/list/AccessibleRowButton.h"
#include "platform/screens/list/RowContent.h"
#include "platform/screens/list/VisibleRows.h"

namespace platform {

AccessibleRow::AccessibleRow(AccessibleList& list, const QModelIndex& index)
    : m_list(list)
    , m_index(index)
    , m_isChecked(isChecked()) {}

AccessibleRow::~AccessibleRow() {
    if (m_button != 0) QAccessible::deleteAccessibleInterface(m_button);
}

QAccessible::Role AccessibleRow::role() const {
    return isChoosable(m_index) ? QAccessible::TreeItem : QAccessible::Heading;
}

QAccessible::State AccessibleRow::state() const {
    const RowContent content = contentOf(m_index);
    QAccessible::State state;
    state.selectable = state.focusable = isChoosable(m_index);
    state.selected = list().selectionModel()->isSelected(m_index);
    state.focused = m_list.focusChild() == this;
    state.expandable = content.isGroup;
    state.expanded = content.isGroup && list().isOpen(m_index);
    state.collapsed = content.isGroup && !state.expanded;
    state.checked = content.accessory == ListView::Accessory::Checkmark;
    state.checkable = state.checked || content.accessory == ListView::Accessory::Unchecked;
    state.disabled = !(m_index.flags() & Qt::ItemIsEnabled);
    state.invisible = !list().isVisible();
    state.offscreen = !list().viewport()->rect().intersects(list().visualRect(m_index));
    return state;
}

bool AccessibleRow::isChecked() const {
    return contentOf(m_index).accessory == ListView::Accessory::Checkmark;
}

void AccessibleRow::tellIfChecked() {
    if (isChecked() == m_isChecked) return;
    m_isChecked = !m_isChecked;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent told(this, changed);
    QAccessible::updateAccessibility(&told);
}

QString AccessibleRow::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Description) return m_index.data(Qt::AccessibleDescriptionRole).toString();
    if (kind != QAccessible::Name || !isValid()) return {};
    const QString name = m_index.data(Qt::AccessibleTextRole).toString();
    const RowContent content = contentOf(m_index);
    const QString title = name.isEmpty() ? content.title : name;
    return content.detail.isEmpty() ? title : title + QStringLiteral(", ") + content.detail;
}

QRect AccessibleRow::rect() const {
    const QRect rect = list().visualRect(m_index);
    return {list().viewport()->mapToGlobal(rect.topLeft()), rect.size()};
}

QAccessibleInterface* AccessibleRow::parent() const {
    const QModelIndex parent = m_index.parent();
    return parent.isValid() ? m_list.rowOf(parent) : &m_list;
}

bool AccessibleRow::hasButton() const {
    return !m_index.data(ListView::ButtonSymbolRole).toString().isEmpty();
}

int AccessibleRow::rowsBelow() const {
    return list().isOpen(m_index) ? list().model()->rowCount(m_index) : 0;
}

int AccessibleRow::childCount() const {
    return (hasButton() ? 1 : 0) + rowsBelow();
}

QAccessibleInterface* AccessibleRow::button() const {
    if (m_button == 0)
        m_button = QAccessible::registerAccessibleInterface(
            std::make_unique<AccessibleRowButton>(*const_cast<AccessibleRow*>(this)).release()); // taken
    return QAccessible::accessibleInterface(m_button);
}

QAccessibleInterface* AccessibleRow::child(int index) const {
    const int row = index - (hasButton() ? 1 : 0);
    if (row == -1) return button();
    return row >= 0 && row < rowsBelow() ? m_list.rowOf(list().model()->index(row, 0, m_index)) : nullptr;
}

int AccessibleRow::indexOfChild(const QAccessibleInterface* child) const {
    const int firstRow = hasButton() ? 1 : 0;
    if (firstRow == 1 && child == button()) return 0;
    const auto* row = dynamic_cast<const AccessibleRow*>(child);
    return row && row->index().parent() == m_index ? firstRow + row->index().row() : -1;
}

QAccessibleInterface* AccessibleRow::childAt(int x, int y) const {
    return hasButton() && button()->rect().contains(x, y) ? button() : nullptr;
}

void* AccessibleRow::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleRow::actionNames() const {
    if (!isChoosable(m_index)) return {};
    QStringList names{isGroup(m_index) ? toggleAction() : pressAction()};
    if (list().contextMenu && list().contextMenu(m_index)) names += showMenuAction();
    return names;
}

void AccessibleRow::doAction(const QString& name) {
    if (!isValid()) return;
    if (name == pressAction() || name == toggleAction()) list().activate(m_index);
    if (name != showMenuAction() || !list().contextMenu) return;
    if (const auto menu = list().contextMenu(m_index)) popUpMenu(*menu, list().viewport(), rect().center());
}

QStringList AccessibleRow::keyBindingsForAction(const QString& /*name*/) const {
    return {};
}

} // namespace platform
