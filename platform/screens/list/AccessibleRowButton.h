#pragma once

#include "platform/screens/list/AccessibleRow.h"

namespace platform {

// The button of a row as assistive tools see it; the row owns it.
class AccessibleRowButton : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    explicit AccessibleRowButton(AccessibleRow& row)
        : m_row(row) {}

    bool isValid() const override { return m_row.isValid(); }

    QObject* object() const override { return nullptr; }

    QWindow* window() const override { return m_row.window(); }

    QAccessible::Role role() const override { return QAccessible::Button; }

    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QRect rect() const override;

    QAccessibleInterface* parent() const override { return &m_row; }

    int childCount() const override { return 0; }

    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override { return {pressAction()}; }

    void doAction(const QString& name) override;

    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    AccessibleRow& m_row;
};

} // namespace platform
