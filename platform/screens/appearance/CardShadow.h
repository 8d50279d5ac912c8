#pragma once

class QPainter;
class QRect;

namespace platform {

// How far the shadow of a card reaches beyond it, in points.
constexpr int cardShadowReach = 40;

// The soft shadow of a card with rounded corners that floats over something. Outside of the card only; cheap
// enough for each frame of an animation, as the shadow is drawn from a picture made once.
void drawCardShadow(QPainter& painter, const QRect& card, int cornerRadius);

} // namespace platform
