#include "Quillet/screens/AlertMaker.h"

#include "platform/screens/controllers/AlertController.h"

namespace quillet {

void showAlert(platform::ViewController& over, const QString& message) {
    platform::showAlert(over, QStringLiteral("Quillet"), message, QStringLiteral("Okay"));
}

} // namespace quillet
