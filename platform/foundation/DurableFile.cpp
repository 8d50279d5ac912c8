#include "platform/foundation/DurableFile.h"

#include "platform/foundation/Durability.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <unistd.h>

namespace platform {

namespace {

bool makeFolder(const QString& path) {
    if (QFileInfo(path).isDir()) return true;
    const QString parent = QFileInfo(path).absolutePath();
    return parent != path && makeFolder(parent) && QDir().mkdir(path) && syncToDisk(parent);
}

} // namespace

bool replaceDurably(const QString& path, const QByteArray& bytes, Readers readers) {
    if (!makeFolder(QFileInfo(path).absolutePath())) return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    if (readers == Readers::OwnerOnly && !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
        return false;
    if (file.write(bytes) != bytes.size()) return false;
    // commit() syncs as well, and does not tell where that fails.
    if (!file.flush() || fsync(file.handle()) != 0 || !file.commit()) return false;
    return syncToDisk(QFileInfo(path).canonicalPath()); // where a link leads, as QSaveFile wrote there
}

} // namespace platform
