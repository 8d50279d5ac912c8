#pragma once

#include "examples/editor/files/FileIdentity.h"

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QObject>

namespace tessarine::editor {

// Tells when the file under a path is no longer the known one: written, replaced or removed. The folder is
// watched as well, because a watch ends with the file that it is on. Main thread.
class FileWatch : public QObject {
    Q_OBJECT

public:
    FileWatch();

    // Gives up what was watched before. A path may have no file yet.
    void watch(const QString& path, const std::optional<FileIdentity>& known);

    // Looks now; for when the system may have told nothing, as on a file system over the network.
    void check();

Q_SIGNALS:
    // Once for each state of the file that is not the known one.
    void changed();

private:
    void follow();

    QFileSystemWatcher m_watcher;
    QString m_path;
    std::optional<FileIdentity> m_known;
};

} // namespace tessarine::editor
