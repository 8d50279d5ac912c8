#include "platform/screens/controllers/Alert.h"

#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace platform {

void showAlert(QWidget* over, const QString& title, const QString& message, const QString& action) {
    auto* alert = new QMessageBox(over->window());
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowTitle(title);
    alert->setText(message);
    alert->addButton(action, QMessageBox::AcceptRole);
    alert->open();
}

} // namespace platform
