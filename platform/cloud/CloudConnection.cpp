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
    auto opened = m_open(**account);
    if (!opened) return std::unexpected(opened.error());
    m_store = std::move(*opened);
    m_account = std::move(*account);
    return m_store.get();
}

void CloudConnection::noteFailure(const CKError& error) {
    if (!isAnswer(error.code)) close();
}

void CloudConnection::close() {
    m_store.reset();
    m_account.reset();
}

} // namespace platform
