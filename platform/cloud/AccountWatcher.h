#pragma once

#include "platform/cloud/ServiceFile.h"
#include "platform/foundation/Observable.h"

#include <QtCore/QFileSystemWatcher>

namespace platform {

// Tells when the account in the service file has become another one, whoever wrote the file: signed in,
// signed out, or changed. Main thread.
class AccountWatcher {
public:
    explicit AccountWatcher(ServiceFile file = ServiceFile());

    const Observable<AccountResult>& account() const { return m_account; }

    Observable<AccountResult>& account() { return m_account; }

private:
    void watch();
    void reread();

    ServiceFile m_file;
    QFileSystemWatcher m_watcher;
    Observable<AccountResult> m_account;
};

} // namespace platform
