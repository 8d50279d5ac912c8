#include "platform/cloud/CKContainer.h"

#include "platform/cloud/AccountRules.h"
#include "platform/cloud/DefaultAccount.h"
#include "platform/foundation/NeverDestroyed.h"

#include <QtCore/QCoreApplication>

namespace platform {

namespace {

CKAccountStatus statusOf(const AccountResult& account) {
    if (!account) return CKAccountStatus::CouldNotDetermine;
    if (!*account) return CKAccountStatus::NoAccount;
    return objectionTo(**account) ? CKAccountStatus::Restricted : CKAccountStatus::Available;
}

} // namespace

CKContainer& CKContainer::defaultContainer() {
    static NeverDestroyed<CKContainer> container(defaultAccountReader(), defaultStoreOpener());
    static const bool isEnding = [] {
        qAddPostRoutine([] { container.get().stop(); });
        return true;
    }();
    Q_UNUSED(isEnding)
    return container.get();
}

CKContainer::CKContainer(AccountReader readAccount, StoreOpener open)
    : m_readAccount(readAccount)
    , m_connection(std::move(readAccount), std::move(open))
    , m_database(m_queue, m_connection) {}

CKContainer::~CKContainer() {
    stop();
}

// What the connection holds belongs to the queue's thread.
void CKContainer::stop() {
    m_connection.interrupt();
    m_queue.stop([this] { m_connection.close(); });
}

void CKContainer::accountStatus(StatusCompletion completion) {
    m_queue.post([this, completion = std::move(completion)] {
        const auto account = m_readAccount();
        completion(statusOf(account), account ? std::nullopt : std::optional(account.error()));
    });
}

} // namespace platform
