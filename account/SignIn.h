#pragma once

#include "platform/cloud/PasswordFile.h"
#include "platform/cloud/ServiceFile.h"

namespace account {

// The account's two files as one: the section of the service file and its line of the password file. Keeps
// nothing in memory; any thread.
class SignIn {
public:
    explicit SignIn(platform::ServiceFile service = platform::ServiceFile(),
                    platform::PasswordFile passwords = platform::PasswordFile())
        : m_service(std::move(service))
        , m_passwords(std::move(passwords)) {}

    platform::AccountResult account() const { return m_service.account(); }

    const platform::ServiceFile& service() const { return m_service; }

    // An empty password leaves the one that is there, where both share it. The password comes first, so that
    // whoever watches the service file finds it. The line of an account that this one replaces goes.
    platform::CloudResult<void> signIn(const platform::CloudAccount& account, const QString& password) const;
    platform::CloudResult<void> signOut() const;

    // Whether signing in to `account` with an empty password keeps the one of the account before.
    static bool keepsPassword(const platform::AccountResult& before, const platform::CloudAccount& account);

private:
    platform::CloudResult<void> forgetPassword(const platform::CloudAccount& account) const;

    platform::ServiceFile m_service;
    platform::PasswordFile m_passwords;
};

} // namespace account
