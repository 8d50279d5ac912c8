#include "platform/cloud/CKContainer.h"

#include "platform/cloud/AccountRules.h"
#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/ServiceFile.h"
#include "platform/foundation/NeverDestroyed.h"

#include <QtCore/QCoreApplication>

namespace platform {

namespace {

// Of one request; whoever quits the program may have to wait for so long.
constexpr Deadline deadline = std::chrono::seconds(10);

CloudResult<std::unique_ptr<CloudStore>> openStore(const CloudAccount& account) {
    return openCloudStore(account, deadline);
}

CKAccountStatus statusOf(const AccountResult& account) {
    if (!account) return CKAccountStatus::CouldNotDetermine;
    if (!*account) return CKAccountStatus::NoAccount;
    return objectionTo(**account) ? CKAccountStatus::Restricted : CKAccountStatus::Available;
}

} // namespace

CKContainer& CKContainer::defaultContainer() {
    static NeverDestroyed<CKContainer> container([] { return ServiceFile().account(); }, openStore);
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
    m_queue.stop([this] { m_connection.close(); });
}

void CKContainer::accountStatus(StatusCompletion completion) {
    m_queue.post([this, completion = std::move(completion)] {
        const auto account = m_readAccount();
        completion(statusOf(account), account ? std::nullopt : std::optional(account.error()));
    });
}

} // namespace platform
