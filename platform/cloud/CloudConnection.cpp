#include "platform/cloud/CloudConnection.h"

namespace platform {

namespace {

// Whether the server has looked at the request and declined it, so that nothing is wrong with the way there.
bool isAnswer(CKError::Code code) {
    switch (code) {
    case CKError::Code::RequestRateLimited:
    case CKError::Code::PermissionFailure:
    case CKError::Code::UnknownItem:
    case CKError::Code::InvalidArguments:
    case CKError::Code::QuotaExceeded:
    case CKError::Code::ZoneNotFound:
        return true;
    default:
        return false;
    }
}

} // namespace

CloudResult<CloudStore*> CloudConnection::store() {
    auto account = m_readAccount();
    if (!account) return std::unexpected(account.error());
    if (m_store && m_account == *account) return m_store.get();
    close();
    if (!*account)
        return std::unexpected(CKError{CKError::Code::NotAuthenticated, QStringLiteral("no account")});
    if (isInterrupted())
        return std::unexpected(
            CKError{CKError::Code::NetworkFailure, QStringLiteral("the call was broken off")});
    auto opened = m_open(**account);
    if (!opened) return std::unexpected(opened.error());
    m_account = std::move(*account);
    return keep(std::move(*opened));
}

// An interruption may have come while it was opened.
CloudStore* CloudConnection::keep(std::unique_ptr<CloudStore> store) {
    const std::scoped_lock lock(m_mutex);
    m_store = std::move(store);
    if (m_isInterrupted) m_store->interrupt();
    return m_store.get();
}

bool CloudConnection::isInterrupted() {
    const std::scoped_lock lock(m_mutex);
    return m_isInterrupted;
}

void CloudConnection::noteFailure(const CKError& error) {
    if (!isAnswer(error.code)) close();
}

void CloudConnection::close() {
    std::unique_ptr<CloudStore> closing; // which may take a while, and so goes without the lock
    {
        const std::scoped_lock lock(m_mutex);
        closing = std::move(m_store);
    }
    m_account.reset();
}

void CloudConnection::interrupt() {
    const std::scoped_lock lock(m_mutex);
    m_isInterrupted = true;
    if (m_store) m_store->interrupt();
}

} // namespace platform
