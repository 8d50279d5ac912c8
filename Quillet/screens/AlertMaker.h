#pragma once

#include <QtCore/QString>

class QWidget;

namespace quillet {

// An alert titled "Quillet" over the window of `over`, with one action "Okay". Returns at once.
void showAlert(QWidget* over, const QString& message);

} // namespace quillet
