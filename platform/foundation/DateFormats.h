#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace platform {

// The one short form of a moment that titles and notes carry, "MMM d, h:mm a": "Nov 24, 3:05 PM".
QString shortDateTime(const QDateTime& moment);

} // namespace platform
