#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QLabel>

namespace platform {

// A bar's title: one line, cut short at its end where it is too long. Main thread.
class BarTitle : public QLabel {
    Q_OBJECT

public:
    BarTitle(Asset color, QWidget* parent);

    void setColor(Asset color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Asset m_color;
};

} // namespace platform
