#include "platform/cloud/ServerParameters.h"

#include "platform/cloud/AccountRules.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace platform {

namespace {

bool makesSense(const ServerAccount& account) {
    static const QStringList modes = {QString(),
                                      QStringLiteral("disable"),
                                      QStringLiteral("allow"),
                                      QStringLiteral("prefer"),
                                      QStringLiteral("require"),
                                      QStringLiteral("verify-ca"),
                                      QStringLiteral("verify-full")};
    const QStringList texts = {account.host, account.database, account.user, account.rootCertificate};
    // Qt takes a semicolon inside a value for the end of it.
    const bool areClean = std::ranges::none_of(
        texts, [](const QString& text) { return text.contains(u';') || text.contains(QChar(0)); });
    return areClean && !account.host.isEmpty() && isOneHost(account.host) && !account.database.isEmpty() &&
           !account.user.isEmpty() && account.port > 0 && account.port < 65536 &&
           modes.contains(account.sslMode);
}

} // namespace

CloudResult<ServerParameters> serverParameters(const ServerAccount& account,
                                               std::chrono::milliseconds deadline) {
    if (!makesSense(account))
        return std::unexpected(CKError{CKError::Code::InvalidArguments,
                                       QStringLiteral("the account's host, port, database, user, sslmode or"
                                                      " sslrootcert makes no sense")});
    if (const auto objection = objectionTo(account))
        return std::unexpected(CKError{CKError::Code::NotAuthenticated, *objection});
    const QString mode = account.sslMode.isEmpty() ? QStringLiteral("prefer") : account.sslMode;
    return ServerParameters{
        {QStringLiteral("host"), account.host},
        {QStringLiteral("hostaddr"), QString()},
        {QStringLiteral("port"), QString::number(account.port)},
        {QStringLiteral("dbname"), account.database},
        {QStringLiteral("user"), account.user},
        {QStringLiteral("sslmode"), mode},
        {QStringLiteral("sslrootcert"), account.rootCertificate},
        {QStringLiteral("gssencmode"), QStringLiteral("disable")}, // it would stand in for TLS
        {QStringLiteral("application_name"), QStringLiteral("Quillet")},
        {QStringLiteral("keepalives_idle"),
         QStringLiteral("30")}, // seconds; for a subscriber that only waits
        {QStringLiteral("keepalives_interval"), QStringLiteral("10")},
        {QStringLiteral("keepalives_count"), QStringLiteral("3")},
        {QStringLiteral("tcp_user_timeout"), QString::number(deadline.count())},
    };
}

} // namespace platform
