#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtGui/QIcon>

class QPainter;

namespace platform {

// The program's symbols by the names the screens ask for, such as "folder.fill". An unknown name is fatal.

// Drawn sharp at any scale, in the colour that `tint` has at the moment of painting.
QIcon symbolIcon(const QString& name, Asset tint);

void drawSymbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& tint);

} // namespace platform
