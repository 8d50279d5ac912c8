#include "platform/screens/controls/ButtonRole.h"

#include <QtCore/QVariant>
#include <QtWidgets/QPushButton>

namespace platform {

namespace {

constexpr const char* roleProperty = "buttonRole";

} // namespace

void setButtonRole(QPushButton& button, ButtonRole role) {
    button.setProperty(roleProperty, static_cast<int>(role));
    button.update();
}

ButtonRole buttonRole(const QPushButton& button) {
    const QVariant role = button.property(roleProperty);
    if (role.isValid()) return static_cast<ButtonRole>(role.toInt());
    if (button.isFlat()) return ButtonRole::Plain;
    return button.isDefault() ? ButtonRole::Prominent : ButtonRole::Bordered;
}

} // namespace platform
