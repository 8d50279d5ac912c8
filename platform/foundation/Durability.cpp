#include "platform/foundation/Durability.h"

#include <QtCore/QFile>

#include <fcntl.h>
#include <unistd.h>

namespace platform {

bool syncToDisk(const QString& path) {
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool synced = fsync(descriptor) == 0;
    close(descriptor);
    return synced;
}

} // namespace platform
