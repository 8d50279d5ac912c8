#include "platform/cloud/AccountWatcher.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <sys/stat.h>
#include <utility>

namespace platform {

AccountWatcher::AccountWatcher(ServiceFile file)
    : m_file(std::move(file))
    , m_writing(latestWriting())
    , m_account(m_file.account()) {
    watch();
    for (const auto signal : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged})
        QObject::connect(&m_watcher, signal, &m_watcher, [this] { reread(); });
}

// A file that is replaced is no longer the one that was watched; the folder tells of that.
void AccountWatcher::watch() {
    m_watcher.addPath(QFileInfo(m_file.path()).absolutePath());
    if (QFileInfo::exists(m_file.path())) m_watcher.addPath(m_file.path());
}

void AccountWatcher::reread() {
    watch();
    const auto writing = latestWriting();
    auto account = m_file.account();
    if (std::exchange(m_writing, writing) != writing || account != m_account.value())
        m_account.set(std::move(account));
}

std::optional<AccountWatcher::Writing> AccountWatcher::latestWriting() const {
    struct stat status = {};
    if (::stat(QFile::encodeName(m_file.path()).constData(), &status) != 0) return std::nullopt;
    return Writing{static_cast<qint64>(status.st_dev), static_cast<qint64>(status.st_ino),
                   status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec, status.st_size};
}

} // namespace platform
