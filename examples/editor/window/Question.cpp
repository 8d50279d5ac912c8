#include "examples/editor/window/Question.h"

#include <QtWidgets/QPushButton>

#include <utility>

namespace tessarine::editor {

void ask(QWidget* parent, const QString& text, const QString& details, const std::vector<Answer>& answers) {
    auto* box = new QMessageBox(QMessageBox::NoIcon, QString(), text, QMessageBox::NoButton, parent);
    box->setInformativeText(details);
    box->setAttribute(Qt::WA_DeleteOnClose);
    std::vector<std::pair<QAbstractButton*, std::function<void()>>> actions;
    for (const Answer& answer : answers) {
        QPushButton* const button = box->addButton(answer.label, answer.role);
        if (answer.role == QMessageBox::AcceptRole) box->setDefaultButton(button);
        if (answer.role == QMessageBox::RejectRole) box->setEscapeButton(button);
        actions.emplace_back(button, answer.action);
    }
    QObject::connect(box, &QMessageBox::finished, parent, [box, actions = std::move(actions)] {
        for (const auto& [button, action] : actions)
            if (button == box->clickedButton()) return action();
    });
    box->open();
}

} // namespace tessarine::editor
