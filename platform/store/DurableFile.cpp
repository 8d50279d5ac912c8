#include "platform/store/DurableFile.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <fcntl.h>
#include <unistd.h>

namespace platform {

namespace {

// Puts the names in a folder on the disk: what was made or renamed there is found after a power cut.
bool syncFolder(const QString& path) {
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return false;
    const bool synced = ::fsync(folder) == 0;
    ::close(folder);
    return synced;
}

bool makeFolder(const QString& path) {
    if (QFileInfo(path).isDir()) return true;
    const QString parent = QFileInfo(path).absolutePath();
    return parent != path && makeFolder(parent) && QDir().mkdir(path) && syncFolder(parent);
}

} // namespace

bool replaceDurably(const QString& path, const QByteArray& bytes) {
    if (!makeFolder(QFileInfo(path).absolutePath())) return false;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    if (file.write(bytes) != bytes.size() || !file.commit()) return false;
    return syncFolder(QFileInfo(path).canonicalPath()); // where a link leads, as QSaveFile wrote there
}

} // namespace platform
