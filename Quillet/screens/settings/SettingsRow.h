#pragma once

#include "Quillet/screens/settings/ColorfulIconLabelStyle.h"

#include <QtWidgets/QAbstractButton>

namespace quillet {

// A row of the settings that does something when it is pressed: an icon, a title, what is chosen, a chevron.
// Main thread.
class SettingsRow : public QAbstractButton {
    Q_OBJECT

public:
    // A symbol on a square of that colour, or an image of the program's own, which is a square already.
    struct Icon {
        QString symbol;
        platform::Asset color = platform::Asset::SystemOrange;
        QString image{};
    };

    SettingsRow(const QString& title, Icon icon, QWidget* parent = nullptr);

    // Shown at the end.
    void setDetail(const QString& detail);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does
    void paintEvent(QPaintEvent* event) override;

private:
    Icon m_icon;
    QString m_detail;
};

} // namespace quillet
