#include "Quillet/screens/AlertMaker.h"

#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace quillet {

void showAlert(QWidget* over, const QString& message) {
    auto* alert = new QMessageBox(over->window());
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowTitle(QStringLiteral("Quillet"));
    alert->setText(message);
    alert->addButton(QStringLiteral("Okay"), QMessageBox::AcceptRole);
    alert->open();
}

} // namespace quillet
