#pragma once

#include <QtCore/QRect>
#include <QtCore/Qt>
#include <QtGui/QPainterPath>

namespace platform {

class ViewController;

// Where a presented controller rests in its window, and what surrounds it. In points of the window.
struct CardPlacement {
    enum class Entrance { FromBelow, Fade };
    enum class Surrounding { Cancels, Inert }; // what a press beside the card does

    QRect content;
    QPainterPath outline; // the card's shape; empty where there is none
    QPainterPath inside;  // where the content may paint: short of the outline's curves, which the card under
                          // it draws smoothly; empty for everywhere
    qreal dimming = 0;    // of the window, up to 1
    Entrance entrance = Entrance::FromBelow;
    Surrounding surrounding = Surrounding::Cancels;
};

// A card in the middle of a wide window, a sheet from below in a narrow one.
CardPlacement automaticPlacement(const QRect& window, const ViewController& controller);

// Beside the controller's anchor, inside the window, in a wide window; as above in a narrow one.
CardPlacement popoverPlacement(const QRect& window, const ViewController& controller);

// A bubble of `size` whose arrow points to `anchor` from the edge `arrow`, or from the opposite one where
// there is more room. Smaller where the window does not hold it.
CardPlacement bubblePlacement(const QRect& window, const QRect& anchor, Qt::Edge arrow, QSize size);

// All of the window.
CardPlacement coveringPlacement(const QRect& window, const ViewController& controller);

// A small card in the middle, as high as its content wants, which has to be answered.
CardPlacement alertPlacement(const QRect& window, const ViewController& controller);

} // namespace platform
