#pragma once

#include "platform/cloud/AccountResult.h"
#include "platform/cloud/CloudStore.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace platform {

// Which account there is, read anew at each call. Nothing where the user is signed out. Any thread.
using AccountReader = std::function<AccountResult()>;
// Opens the account's database; blocks up to a deadline of its own. Any thread.
using StoreOpener = std::function<CloudResult<std::unique_ptr<CloudStore>>(const CloudAccount&)>;

// The store of the account that is signed in: opened when first asked for, and anew after a failure of the
// connection or when the account is another one. One thread, but for interrupt().
class CloudConnection {
public:
    CloudConnection(AccountReader readAccount, StoreOpener open)
        : m_readAccount(std::move(readAccount))
        , m_open(std::move(open)) {}

    // NotAuthenticated where nobody is signed in. The store is good until the next call.
    CloudResult<CloudStore*> store();
    // To be told of every failure of the store.
    void noteFailure(const CKError& error);
    void close();

    // From any thread, for good: the request that is under way fails soon, and no store is opened any more.
    // An opening that is under way is waited for by whoever waits for the request.
    void interrupt();

private:
    CloudStore* keep(std::unique_ptr<CloudStore> store);
    bool isInterrupted();

    AccountReader m_readAccount;
    StoreOpener m_open;
    std::optional<CloudAccount> m_account; // of m_store

    std::mutex m_mutex; // guards these, for interrupt(); held for moments only
    std::unique_ptr<CloudStore> m_store;
    bool m_isInterrupted = false;
};

} // namespace platform
