#include "examples/editor/files/FileWatch.h"

#include <QtCore/QFileInfo>

namespace tessarine::editor {

FileWatch::FileWatch() {
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatch::check);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatch::check);
}

void FileWatch::watch(const QString& path, const std::optional<FileIdentity>& known) {
    m_known = known;
    if (path != m_path) {
        const QStringList before = m_watcher.files() + m_watcher.directories();
        if (!before.isEmpty()) m_watcher.removePaths(before);
        m_path = path;
    }
    follow();
}

void FileWatch::check() {
    if (m_path.isEmpty()) return;
    follow();
    const auto present = fileIdentity(m_path);
    if (present == m_known) return;
    m_known = present;
    Q_EMIT changed();
}

void FileWatch::follow() {
    if (m_path.isEmpty()) return;
    const QFileInfo info(m_path);
    // A link's target lies in a folder of its own, and is what another program replaces.
    for (const QString& path : {info.absolutePath(), info.canonicalPath(), info.absoluteFilePath()})
        if (!path.isEmpty() && QFileInfo::exists(path)) m_watcher.addPath(path);
}

} // namespace tessarine::editor
