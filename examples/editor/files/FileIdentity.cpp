#include "examples/editor/files/FileIdentity.h"

#include <QtCore/QFile>

#include <sys/stat.h>

namespace tessarine::editor {

FileIdentity FileIdentity::of(const struct stat& status) {
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    return {status.st_dev, status.st_ino, status.st_size,
            status.st_mtim.tv_sec * nanoseconds + status.st_mtim.tv_nsec};
}

std::optional<FileIdentity> fileIdentity(const QString& path) {
    struct stat status{};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) return std::nullopt;
    return FileIdentity::of(status);
}

} // namespace tessarine::editor
