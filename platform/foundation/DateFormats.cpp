#include "platform/foundation/DateFormats.h"

#include <QtCore/QLocale>

namespace platform {

QString shortDateTime(const QDateTime& moment) {
    return QLocale().toString(moment, QStringLiteral("MMM d, h:mm AP"));
}

} // namespace platform
