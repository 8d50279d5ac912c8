#pragma once

#include "platform/screens/list/AccessibleList.h"

namespace platform {

// A row of a list as assistive tools see it. Its children are its button and, while it is open, the rows
// below it.
class AccessibleRow : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleRow(AccessibleList& list, const QModelIndex& index);
    ~AccessibleRow() override;

    const QPersistentModelIndex& index() const { return m_index; }

    const AccessibleList& tree() const { return m_list; }

    ListView& list() const { return m_list.list(); }

    // To assistive tools, where it has changed.
    void tellIfChecked();

    bool isValid() const override { return m_index.isValid(); }

    QObject* object() const override { return nullptr; }

    QWindow* window() const override { return m_list.window(); }

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QRect rect() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    bool isChecked() const;
    bool hasButton() const;
    QAccessibleInterface* button() const;
    int rowsBelow() const;

    AccessibleList& m_list;
    QPersistentModelIndex m_index;
    bool m_isChecked = false;             // as last told
    mutable QAccessible::Id m_button = 0; // made when asked for
};

} // namespace platform
