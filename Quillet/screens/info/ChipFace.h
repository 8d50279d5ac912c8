#pragma once

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Palette.h"

#include <QtCore/QString>

#include <optional>

class QPainter;
class QRectF;
class QSize;
class QWidget;

namespace quillet {

// How a chip looks: one line on a rounded ground, at least 33 points high. A long title is cut short.
struct ChipFace {
    std::optional<platform::Asset> fill{};
    std::optional<platform::Asset> border{};
    QColor text;
};

// Around the face, for the focus ring.
constexpr int chipMargin = platform::focusRingGap + platform::focusRingWidth; // points

// With the margin. Points.
QSize chipSize(const QString& title, int leastWidth);

// Whether chipSize() has no room for all of it.
bool isChipTitleCut(const QString& title);

void drawChip(QPainter& painter, const QWidget& chip, const QString& title, const ChipFace& face);

} // namespace quillet
