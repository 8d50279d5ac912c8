#pragma once

class QPainter;
class QRectF;
class QWidget;

namespace platform {

// Points. A ring lies outside of its control and grows it by both at each side.
constexpr int focusRingWidth = 2;
constexpr int focusRingGap = 1;

// Whether `widget` has the focus and the user works with the keyboard.
bool showsFocusRing(const QWidget& widget);

// Around a control with that outline. An antialiasing painter is the caller's to see to.
void drawFocusRing(QPainter& painter, const QRectF& control, double cornerRadius);

} // namespace platform
