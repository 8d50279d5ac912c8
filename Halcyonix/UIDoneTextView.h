#pragma once

#include "Halcyonix/KeyboardAccessory.h"

#include <QtWidgets/QTextEdit>

namespace halcyonix {

// Text of several lines with the toolbar that closes the keyboard, on which `customPlaceholderText` says what
// is being written.
class UIDoneTextView : public QTextEdit {
    Q_OBJECT

public:
    explicit UIDoneTextView(QWidget* parent = nullptr);

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
