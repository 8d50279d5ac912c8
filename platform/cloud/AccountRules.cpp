#include "platform/cloud/AccountRules.h"

#include <QtCore/QFileInfo>

#include <arpa/inet.h>

namespace platform {

namespace {

bool isLoopbackAddress(const QByteArray& host) {
    in_addr four{};
    if (inet_pton(AF_INET, host.constData(), &four) == 1) return ntohl(four.s_addr) >> 24 == 127;
    in6_addr six{};
    return inet_pton(AF_INET6, host.constData(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}

} // namespace

bool isOneHost(const QString& host) {
    return !host.contains(u',');
}

bool isLocalHost(const QString& host) {
    if (!isOneHost(host)) return false;
    const bool isSocket = host.startsWith(QLatin1Char('/')) || host.startsWith(QLatin1Char('@'));
    return isSocket || host.compare(QStringLiteral("localhost"), Qt::CaseInsensitive) == 0 ||
           isLoopbackAddress(host.toUtf8());
}

std::optional<QString> objectionTo(const CloudAccount& account) {
    const auto* server = std::get_if<ServerAccount>(&account);
    if (!server) return std::nullopt;
    if (!isOneHost(server->host)) return QStringLiteral("A host's name has no commas.");
    if (isLocalHost(server->host)) return std::nullopt;
    if (server->sslMode != QStringLiteral("verify-full"))
        return QStringLiteral("A server on another machine needs sslmode verify-full.");
    if (server->rootCertificate.isEmpty())
        return QStringLiteral("A server on another machine needs a CA file that vouches for it.");
    if (!QFileInfo(server->rootCertificate).isFile()) return QStringLiteral("The CA file is not there.");
    return std::nullopt;
}

} // namespace platform
