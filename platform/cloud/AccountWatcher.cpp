#include "platform/cloud/AccountWatcher.h"

#include <QtCore/QFileInfo>

namespace platform {

AccountWatcher::AccountWatcher(ServiceFile file)
    : m_file(std::move(file))
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
    auto account = m_file.account();
    if (account != m_account.value()) m_account.set(std::move(account));
}

} // namespace platform
