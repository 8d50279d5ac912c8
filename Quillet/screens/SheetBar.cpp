#include "Quillet/screens/SheetBar.h"

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace quillet {

SheetBar::SheetBar(const QString& title, QWidget* parent)
    : QWidget(parent) {
    auto* label = new QLabel(title, this);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(label, 0, 0, Qt::AlignCenter);
}

QPushButton* SheetBar::addCancelButton(const QString& text) {
    return addButton(text, Qt::AlignLeft);
}

QPushButton* SheetBar::addConfirmButton(const QString& text) {
    auto* button = addButton(text, Qt::AlignRight);
    QFont font = button->font();
    font.setBold(true);
    button->setFont(font);
    return button;
}

QPushButton* SheetBar::addButton(const QString& text, Qt::Alignment side) {
    auto* button = new QPushButton(text, this);
    button->setFlat(true);
    button->setMinimumSize(44, 36);
    button->setAutoDefault(false);
    button->setStyleSheet(
        QStringLiteral("QPushButton { color: %1; border: none; padding: 4px 6px; border-radius: 8px; }"
                       "QPushButton:hover, QPushButton:focus { background: %2; }")
            .arg(platform::color(platform::Asset::Accent).name(),
                 platform::color(platform::Asset::Selection).name()));
    static_cast<QGridLayout*>(layout())->addWidget(button, 0, 0, side);
    return button;
}

} // namespace quillet
