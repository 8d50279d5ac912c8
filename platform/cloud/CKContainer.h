#pragma once

#include "platform/cloud/CKAccountStatus.h"
#include "platform/cloud/CKDatabase.h"

namespace platform {

// A program's place in the user's cloud: the account and the private database behind it. Making one touches
// neither file nor network. Calls from any thread return at once; completions are called on the container's
// own queue, which is one background thread.
class CKContainer {
public:
    using StatusCompletion = std::function<void(CKAccountStatus status, const std::optional<CKError>& error)>;

    // Of the account in libpq's service file. Stops when the application object goes, as its destructor
    // does.
    static CKContainer& defaultContainer();

    CKContainer(AccountReader readAccount, StoreOpener open);
    // Breaks a request that is under way off, waits for its end, and drops the others.
    ~CKContainer();
    CKContainer(const CKContainer&) = delete;
    CKContainer& operator=(const CKContainer&) = delete;

    // What the account says of itself; the server is not asked. CouldNotDetermine comes with an error.
    void accountStatus(StatusCompletion completion);

    CKDatabase& privateCloudDatabase() { return m_database; }

private:
    void stop();

    AccountReader m_readAccount;
    CloudConnection m_connection;
    CloudQueue m_queue;
    CKDatabase m_database;
};

} // namespace platform
