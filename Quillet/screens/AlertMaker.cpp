#include "Quillet/screens/AlertMaker.h"

#include "platform/screens/controllers/Alert.h"

namespace quillet {

void showAlert(QWidget* over, const QString& message) {
    platform::showAlert(over, QStringLiteral("Quillet"), message, QStringLiteral("Okay"));
}

} // namespace quillet
