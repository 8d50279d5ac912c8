#pragma once

#include "platform/cloud/AccountResult.h"
#include "platform/cloud/CloudStore.h"

#include <functional>
#include <memory>
#include <optional>

namespace platform {

// Which account there is, read anew at each call. Nothing where the user is signed out. Any thread.
using AccountReader = std::function<AccountResult()>;
// Opens the account's database; blocks up to a deadline of its own. Any thread.
using StoreOpener = std::function<CloudResult<std::unique_ptr<CloudStore>>(const CloudAccount&)>;

// The store of the account that is signed in: opened when first asked for, and anew after a failure of the
// connection or when the account is another one. One thread.
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

private:
    AccountReader m_readAccount;
    StoreOpener m_open;
    std::optional<CloudAccount> m_account; // of m_store
    std::unique_ptr<CloudStore> m_store;
};

} // namespace platform
