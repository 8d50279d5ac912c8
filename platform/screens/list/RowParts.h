#pragma once

#include "platform/screens/list/RowContent.h"
#include "platform/screens/list/VisibleRows.h"

namespace platform {

// Where the parts of a row stand, in the coordinates of the row's rectangle. What a row does not have is
// empty.
struct RowParts {
    QRect card; // the row between the sides of its card
    QRectF symbol;
    QRect title;
    QRect detail;
    QRect button; // as large as a finger needs it
    QRectF chevron;
    QRectF checkmark;
    QRect separator;
};

// Points.
inline constexpr int cardMargin = 16;
inline constexpr int cardRadius = 12;

QFont titleFont(ListView::RowStyle style, bool isSelected);

RowParts partsOf(const RowContent& content, const VisibleRow& row, const QRect& rect,
                 Qt::LayoutDirection direction);

VisibleRows::Metrics listMetrics();

} // namespace platform
