#include "account/SignIn.h"

#include "platform/cloud/CloudTry.h"

#include <tuple>

namespace account {

using platform::CloudAccount;
using platform::CloudResult;
using platform::ServerAccount;

namespace {

// What a line of the password file is found by.
auto keyOf(const ServerAccount& server) {
    return std::tie(server.host, server.port, server.database, server.user);
}

bool sharesPassword(const CloudAccount& a, const CloudAccount& b) {
    const auto* one = std::get_if<ServerAccount>(&a);
    const auto* other = std::get_if<ServerAccount>(&b);
    return one && other && keyOf(*one) == keyOf(*other);
}

} // namespace

CloudResult<void> SignIn::signIn(const CloudAccount& account, const QString& password) const {
    const auto before = m_service.account();
    const auto* server = std::get_if<ServerAccount>(&account);
    if (server && !password.isEmpty()) CLOUD_TRY(m_passwords.write(*server, password));
    CLOUD_TRY(m_service.write(account));
    if (before && *before && !sharesPassword(**before, account)) return forgetPassword(**before);
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
