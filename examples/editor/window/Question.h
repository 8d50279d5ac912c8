#pragma once

#include <QtCore/QString>
#include <QtWidgets/QMessageBox>

#include <functional>
#include <vector>

class QWidget;

namespace tessarine::editor {

struct Answer {
    QString label;
    QMessageBox::ButtonRole role;
    std::function<void()> action;
};

// Asks over the window and returns at once; the answer's action comes later, and not at all if the window
// goes before. Escape is the answer that rejects.
void ask(QWidget* parent, const QString& text, const QString& details, const std::vector<Answer>& answers);

} // namespace tessarine::editor
