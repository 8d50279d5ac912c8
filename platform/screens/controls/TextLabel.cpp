#include "platform/screens/controls/TextLabel.h"

#include <QtWidgets/QLabel>

namespace platform {

QLabel* makeLabel(const QString& text, TextStyle style, QWidget* parent, QPalette::ColorRole role) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setForegroundRole(role);
    setTextStyle(*label, style);
    return label;
}

} // namespace platform
