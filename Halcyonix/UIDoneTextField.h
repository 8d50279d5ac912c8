#pragma once

#include "Halcyonix/KeyboardAccessory.h"

#include <QtWidgets/QLineEdit>

namespace halcyonix {

// A line of text with the toolbar that closes the keyboard, on which `customPlaceholderText` says what is
// being written.
class UIDoneTextField : public QLineEdit {
    Q_OBJECT

public:
    explicit UIDoneTextField(QWidget* parent = nullptr);

    QString customPlaceholderText() const { return m_accessory->placeholderText(); }

    void setCustomPlaceholderText(const QString& text);

    // All three are made at the first call.
    InputToolbar& inputToolbar() { return m_accessory->toolbar(); }

    DoneButton& doneButton() { return inputToolbar().doneButton(); }

    QLabel& placeHolderButton() { return inputToolbar().placeHolderButton(); }

private:
    KeyboardAccessory* m_accessory;
};

} // namespace halcyonix
