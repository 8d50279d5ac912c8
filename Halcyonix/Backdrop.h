#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QAbstractButton>

namespace halcyonix {

// What lies behind a card: covers the window, and paints the card's shadow and its ground. A tap on it is a
// click; one that ends elsewhere does nothing.
class Backdrop : public QAbstractButton {
    Q_OBJECT

public:
    explicit Backdrop(QWidget* parent = nullptr);

    // Where the card stands, in coordinates of this.
    void setCard(const QRect& card, int cornerRadius, platform::Asset ground);

protected:
    virtual void paintVeil(QPainter& painter) = 0;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect m_card;
    int m_cornerRadius = 0;
    platform::Asset m_ground = platform::Asset::Card;
};

} // namespace halcyonix
