#include "platform/screens/list/AccessibleRowButton.h"

#include "platform/screens/list/RowParts.h"

namespace platform {

QAccessible::State AccessibleRowButton::state() const {
    const QAccessible::State ofRow = m_row.state();
    QAccessible::State state;
    state.focusable = true;
    state.focused = m_row.tree().focusChild() == this;
    state.disabled = ofRow.disabled;
    state.invisible = ofRow.invisible;
    state.offscreen = ofRow.offscreen;
    return state;
}

QString AccessibleRowButton::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? m_row.index().data(ListView::ButtonNameRole).toString() : QString();
}

QRect AccessibleRowButton::rect() const {
    const auto& list = m_row.list();
    const auto row = list.rows().rowOf(m_row.index());
    if (!row) return {};
    const QRect button = list.partsOf(*row).button;
    return {list.viewport()->mapToGlobal(button.topLeft()), button.size()};
}

void* AccessibleRowButton::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

void AccessibleRowButton::doAction(const QString& name) {
    if (name == pressAction() && isValid()) m_row.list().pressButton(m_row.index());
}

} // namespace platform
