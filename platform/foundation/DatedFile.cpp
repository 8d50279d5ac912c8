#include "platform/foundation/DatedFile.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>

namespace platform {

QString datedBeside(const QString& path) {
    const QString dated =
        path + u'.' + QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmsszzz"));
    QString free = dated;
    for (int number = 2; QFileInfo::exists(free); ++number)
        free = QStringLiteral("%1-%2").arg(dated).arg(number);
    return free;
}

} // namespace platform
