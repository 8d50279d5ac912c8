#pragma once

#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QPalette>

class QLabel;

namespace platform {

// A label with plain text that wraps, in the font of `style` and the palette's colour of `role`. A child of
// `parent`.
QLabel* makeLabel(const QString& text, TextStyle style, QWidget* parent,
                  QPalette::ColorRole role = QPalette::WindowText);

} // namespace platform
