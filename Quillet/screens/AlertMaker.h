#pragma once

#include <QtCore/QString>

namespace platform {
class ViewController;
}

namespace quillet {

// An alert titled "Quillet" over the window of `over`, with one action "Okay". Returns at once.
void showAlert(platform::ViewController& over, const QString& message);

} // namespace quillet
