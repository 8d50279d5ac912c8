#include "Quillet/controls/ToolbarTextField.h"

namespace quillet {

ToolbarTextField::ToolbarTextField(QWidget* parent)
    : PaddedUITextField(defaultInsets, parent)
    , m_accessory(new halcyonix::KeyboardAccessory(*this, platform::Asset::Accent)) {}

} // namespace quillet
