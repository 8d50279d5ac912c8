#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QAbstractButton>

namespace halcyonix {

// The action that a card is about: its text on a colour, squishy, at least 44 points high.
class FilledButton : public QAbstractButton {
    Q_OBJECT

public:
    FilledButton(const QString& text, platform::Asset fill, QWidget* parent = nullptr);

    void setFill(platform::Asset fill);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    platform::Asset m_fill;
};

} // namespace halcyonix
