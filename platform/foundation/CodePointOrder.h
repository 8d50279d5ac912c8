#pragma once

#include <QtCore/QString>

namespace platform {

// A text whose plain comparison orders `text` by its code points, canonically equivalent texts being equal.
// Without locale: every capital comes before every small letter. Costs nothing for ASCII.
QString codePointOrderKey(const QString& text);

} // namespace platform
