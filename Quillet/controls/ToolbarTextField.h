#pragma once

#include "Halcyonix/KeyboardAccessory.h"
#include "Quillet/controls/PaddedUITextField.h"

namespace quillet {

// A padded field with the toolbar that closes the keyboard; when that is shown, KeyboardAccessory tells.
class ToolbarTextField : public PaddedUITextField {
    Q_OBJECT

public:
    explicit ToolbarTextField(QWidget* parent = nullptr);

    halcyonix::KeyboardAccessory& accessory() { return *m_accessory; }

private:
    halcyonix::KeyboardAccessory* m_accessory;
};

} // namespace quillet
