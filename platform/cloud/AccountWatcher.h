#pragma once

#include "platform/cloud/ServiceFile.h"
#include "platform/foundation/Observable.h"

#include <QtCore/QFileSystemWatcher>

#include <array>
#include <optional>

namespace platform {

// Tells of the account in the service file each time that the file was written, whoever did it: signed in,
// signed out, changed, or the same again, which is how a new password is made known. Main thread.
class AccountWatcher {
public:
    explicit AccountWatcher(ServiceFile file = ServiceFile());

    const Observable<AccountResult>& account() const { return m_account; }

    Observable<AccountResult>& account() { return m_account; }

private:
    void watch();
    void reread();
    // What is another one after every writing; nothing where there is no file.
    using Writing = std::array<qint64, 4>; // device, inode, nanoseconds, bytes
    std::optional<Writing> latestWriting() const;

    ServiceFile m_file;
    QFileSystemWatcher m_watcher;
    std::optional<Writing> m_writing;
    Observable<AccountResult> m_account;
};

} // namespace platform
