#pragma once

#include "Quillet/screens/settings/ColorfulIconLabelStyle.h"

#include <QtWidgets/QAbstractButton>

namespace quillet {

// One row of a card that its rows fill from edge to edge: a colourful label, perhaps a value, and a mark for
// where it leads. Main thread.
class SettingsRow : public QAbstractButton {
    Q_OBJECT

public:
    enum class Leads {
        Inward,  // to another screen
        Outward, // to another program
    };

    SettingsRow(ColorfulIconLabelStyle::Label label, platform::Asset color, Leads leads,
                QWidget* parent = nullptr);

    // At the end of the row.
    void setValue(const QString& value);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does

private:
    void paintSeparator(QPainter& painter) const;
    void paintGround(QPainter& painter) const;
    QRect paintMark(QPainter& painter, const QRect& row) const;
    QRect paintValue(QPainter& painter, const QRect& row) const;

    ColorfulIconLabelStyle::Label m_label;
    platform::Asset m_color;
    Leads m_leads;
    QString m_value;
};

} // namespace quillet
