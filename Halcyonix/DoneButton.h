#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QAbstractButton>

namespace halcyonix {

// "Close Keyboard": a small filled button with a keyboard on it. Leaves the focus where it is.
class DoneButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit DoneButton(platform::Asset tint, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    platform::Asset m_tint;
};

} // namespace halcyonix
