#include "Halcyonix/UIDoneTextField.h"

#include "Halcyonix/Environment.h"

#include <QtWidgets/QLabel>

namespace halcyonix {

UIDoneTextField::UIDoneTextField(QWidget* parent)
    : QLineEdit(parent)
    , m_accessory(new KeyboardAccessory(*this, Environment::shared().primaryColor)) {}

void UIDoneTextField::setCustomPlaceholderText(const QString& text) {
    m_accessory->setPlaceholderText(text);
}

} // namespace halcyonix
