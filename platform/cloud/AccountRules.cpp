#include "platform/cloud/AccountRules.h"

#include <QtCore/QRegularExpression>

namespace platform {

bool isLocalHost(const QString& host) {
    static const QRegularExpression loopback(QStringLiteral(R"(\A127(\.\d{1,3}){3}\z)"));
    return host.startsWith(QLatin1Char('/')) || host.toLower() == QStringLiteral("localhost") ||
           host == QStringLiteral("::1") || loopback.match(host).hasMatch();
}

std::optional<QString> objectionTo(const CloudAccount& account) {
    const auto* server = std::get_if<ServerAccount>(&account);
    if (!server || isLocalHost(server->host)) return std::nullopt;
    if (server->sslMode != QStringLiteral("verify-full"))
        return QStringLiteral("A server on another machine needs sslmode verify-full.");
    if (server->rootCertificate.isEmpty())
        return QStringLiteral("A server on another machine needs a CA file that vouches for it.");
    return std::nullopt;
}

} // namespace platform
