#include "Quillet/core/DataDirectory.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace quillet {

QString dataDirectory() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Quillet"));
}

} // namespace quillet
