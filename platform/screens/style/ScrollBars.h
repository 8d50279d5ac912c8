#pragma once

#include <QtWidgets/QStyle>

class QStyleOptionSlider;

namespace platform::style {

constexpr int scrollBarExtent = 11; // points

// A thin rounded slider and nothing else: no arrows, no groove.
void drawScrollBar(const QStyleOptionSlider& option, QPainter& painter);
QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part);

} // namespace platform::style
