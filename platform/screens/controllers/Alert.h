#pragma once

#include <QtCore/QString>

class QWidget;

namespace platform {

// An alert over the window of `over`, with one action. Returns at once; the alert goes when it is answered.
void showAlert(QWidget* over, const QString& title, const QString& message, const QString& action);

} // namespace platform
