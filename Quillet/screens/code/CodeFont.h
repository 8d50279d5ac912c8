#pragma once

#include <QtGui/QFont>

namespace quillet {

// The system's monospaced font at 14 points of the screen. The stored size and font of the settings have no
// part in it.
QFont codeFont();

} // namespace quillet
