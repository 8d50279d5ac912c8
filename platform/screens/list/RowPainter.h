#pragma once

#include "platform/screens/list/RowParts.h"

class QPainter;

namespace platform {

// How a row is right now.
struct RowLook {
    bool isSelected = false;
    bool isHovered = false;
    bool isPressed = false;
    bool isFocused = false;
    bool isButtonHovered = false;
    bool isButtonPressed = false;
    bool isButtonFocused = false;
    double openness = 0; // of a group, from 0 to 1
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

// The rounded ground that rows stand on.
void paintCard(QPainter& painter, const QRect& card, Asset fill);

// The row without the card below it.
void paintRow(QPainter& painter, const RowContent& content, const RowParts& parts, ListView::RowStyle style,
              const RowLook& look);

} // namespace platform
