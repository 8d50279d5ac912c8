#include "account/SignIn.h"

#include "platform/cloud/CloudTry.h"

namespace account {

using platform::CloudAccount;
using platform::CloudResult;
using platform::ServerAccount;

bool SignIn::keepsPassword(const platform::AccountResult& before, const CloudAccount& account) {
    if (!before || !*before) return false;
    const auto* one = std::get_if<ServerAccount>(&**before);
    const auto* other = std::get_if<ServerAccount>(&account);
    return one && other && platform::PasswordFile::shareLine(*one, *other);
}

CloudResult<void> SignIn::signIn(const CloudAccount& account, const QString& password) const {
    const auto before = m_service.account();
    const auto* server = std::get_if<ServerAccount>(&account);
    if (server && !password.isEmpty()) CLOUD_TRY(m_passwords.write(*server, password));
    CLOUD_TRY(m_service.write(account));
    if (before && *before && !keepsPassword(before, account)) return forgetPassword(**before);
    return {};
}

CloudResult<void> SignIn::signOut() const {
    const auto before = m_service.account();
    CLOUD_TRY(m_service.remove());
    return before && *before ? forgetPassword(**before) : CloudResult<void>();
}

CloudResult<void> SignIn::forgetPassword(const CloudAccount& account) const {
    const auto* server = std::get_if<ServerAccount>(&account);
    return server ? m_passwords.remove(*server) : CloudResult<void>();
}

} // namespace account
