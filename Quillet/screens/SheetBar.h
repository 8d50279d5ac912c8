#pragma once

#include <QtWidgets/QWidget>

class QPushButton;

namespace quillet {

// The bar on top of a sheet: a cancelling button, the title in the middle, a confirming button.
class SheetBar : public QWidget {
    Q_OBJECT

public:
    SheetBar(const QString& title, QWidget* parent);

    QPushButton* addCancelButton(const QString& text);
    QPushButton* addConfirmButton(const QString& text);

private:
    QPushButton* addButton(const QString& text, Qt::Alignment side);
};

} // namespace quillet
