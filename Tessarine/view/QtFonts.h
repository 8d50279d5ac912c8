#pragma once

#include "Tessarine/base/Font.h"

#include <QtGui/QFont>

namespace tessarine {

// The face that the machine has for a font.
//
// A family that is not installed is replaced by the system's fixed-width one where the name is that of a
// fixed-width family, and else by the toolkit's own choice. Sizes are whole points, as those of the toolkit
// are. Advances are not rounded to pixels, so a text is as wide on a coarse screen as on a fine one.
// Thread: any; each thread has faces of its own, as those of the toolkit cannot be shared.
QFont qtFont(const Font& font);

} // namespace tessarine
