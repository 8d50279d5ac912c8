#pragma once

#include <QtCore/QRect>

class QPainter;

namespace platform {

// The soft shadow of a card with rounded corners that floats over something. Outside of the card only; cheap
// enough for each frame of an animation, as the shadow is drawn from a picture made once.
void drawCardShadow(QPainter& painter, const QRect& card, int cornerRadius);

// What of the surface the card and its shadow cover.
QRect withCardShadow(const QRect& card);

} // namespace platform
