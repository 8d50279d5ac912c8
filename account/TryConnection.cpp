#include "account/TryConnection.h"

#include "platform/cloud/AccountFile.h"
#include "platform/cloud/CloudTry.h"
#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/PasswordFile.h"

#include <QtCore/QFile>
#include <QtCore/QScopeGuard>

namespace account {

using platform::CloudAccount;
using platform::CloudResult;

TryConnection::TryConnection(QString userPasswordFile)
    : m_userPasswordFile(std::move(userPasswordFile)) {
    qputenv("PGPASSFILE", QFile::encodeName(m_passwordFile));
}

CloudResult<void> TryConnection::operator()(const CloudAccount& account, const QString& password) {
    const std::lock_guard lock(m_mutex);
    const auto removal = qScopeGuard([this] { QFile::remove(m_passwordFile); });
    CLOUD_TRY(preparePasswords(account, password));
    const auto store =
        platform::openCloudStore(account, platform::usualDeadline, platform::MissingFile::Made);
    if (!store) return std::unexpected(store.error());
    CLOUD_TRY((*store)->revision());
    return {};
}

CloudResult<void> TryConnection::preparePasswords(const CloudAccount& account,
                                                  const QString& password) const {
    const auto* server = std::get_if<platform::ServerAccount>(&account);
    if (!server) return {};
    const auto bytes = platform::readAccountFile(m_userPasswordFile);
    if (!bytes) return std::unexpected(bytes.error());
    CLOUD_TRY(platform::writeAccountFile(m_passwordFile, *bytes));
    if (password.isEmpty()) return {};
    return platform::PasswordFile(m_passwordFile).write(*server, password);
}

} // namespace account
