#pragma once

#include <QtGui/QFont>

namespace platform {

// The system's font at a size in points of the design, grown by as much as the user made the system's font
// larger than its usual ten typographic points; never smaller.
QFont systemFont(double size);

} // namespace platform
