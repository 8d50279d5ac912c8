#include "platform/cloud/ServerProbe.h"

#include "platform/cloud/Socket.h"
#include "platform/cloud/SqlState.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <array>
#include <cerrno>
#include <libpq-fe.h>
#include <memory>
#include <netdb.h>
#include <poll.h>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;
using Connection = std::unique_ptr<PGconn, decltype([](PGconn* connection) { PQfinish(connection); })>;

Connection start(const ServerParameters& parameters) {
    std::vector<QByteArray> texts;
    for (const auto& [key, value] : parameters) {
        texts.push_back(key.toUtf8());
        texts.push_back(value.toUtf8());
    }
    std::vector<const char*> keys;
    std::vector<const char*> values;
    for (std::size_t i = 0; i < texts.size(); i += 2) {
        keys.push_back(texts[i].constData());
        values.push_back(texts[i + 1].constData());
    }
    keys.push_back(nullptr);
    values.push_back(nullptr);
    return Connection(PQconnectStartParams(keys.data(), values.data(), 0));
}

// How far a connection had got.
struct Progress {
    ConnStatusType phase = CONNECTION_STARTED;
    bool hasEnded = false; // by the server, without a word
};

CKError::Code codeOf(PGconn* connection, const Progress& progress, const QString& message) {
    // The severity before it is in the server's language; the state is not.
    static const QRegularExpression state(QStringLiteral(": {2}([0-9A-Z]{5}): "));
    if (const auto match = state.match(message); match.hasMatch())
        return codeOfSqlState(match.captured(1).toStdString());
    if (PQconnectionNeedsPassword(connection)) return CKError::Code::NotAuthenticated;
    if (progress.hasEnded) return CKError::Code::NetworkUnavailable;
    if (progress.phase == CONNECTION_SSL_STARTUP) return CKError::Code::NotAuthenticated;
    return CKError::Code::NetworkUnavailable;
}

std::unexpected<CKError> failure(PGconn* connection, const Progress& progress) {
    const QString message = QString::fromUtf8(PQerrorMessage(connection));
    return std::unexpected(
        CKError{codeOf(connection, progress, message), message.section(u'\n', 0, 0).trimmed()});
}

std::unexpected<CKError> silence(const Progress& progress) {
    const auto code = progress.phase == CONNECTION_STARTED ? CKError::Code::NetworkUnavailable
                                                           : CKError::Code::NetworkFailure;
    return std::unexpected(CKError{code, QStringLiteral("the server does not answer")});
}

// Waits until libpq can go on. False once the limit has passed.
bool waitFor(PGconn* connection, PostgresPollingStatusType wanted, Clock::time_point limit) {
    const short events = wanted == PGRES_POLLING_READING ? POLLIN : POLLOUT;
    pollfd descriptor = {PQsocket(connection), events, 0};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now());
    if (left.count() <= 0) return false;
    const int ready = ::poll(&descriptor, 1, static_cast<int>(left.count()));
    if (ready < 0 && errno == EINTR) return waitFor(connection, wanted, limit);
    return ready > 0;
}

QString valueOf(const ServerParameters& parameters, const QString& name) {
    const auto found = std::ranges::find(parameters, name, &ServerParameters::value_type::first);
    return found == parameters.end() ? QString() : found->second;
}

CloudResult<QString> probeOne(const ServerParameters& parameters, Clock::time_point limit) {
    const Connection connection = start(parameters);
    Progress progress;
    if (!connection || PQstatus(connection.get()) == CONNECTION_BAD)
        return failure(connection.get(), progress);
    PQsetErrorVerbosity(connection.get(), PQERRORS_VERBOSE);
    auto wanted = PGRES_POLLING_WRITING;
    while (wanted != PGRES_POLLING_OK) {
        progress.phase = PQstatus(connection.get());
        if (!waitFor(connection.get(), wanted, limit)) return silence(progress);
        progress.hasEnded = wanted == PGRES_POLLING_READING && Socket(PQsocket(connection.get())).isAtEnd();
        wanted = PQconnectPoll(connection.get());
        if (wanted == PGRES_POLLING_FAILED) return failure(connection.get(), progress);
    }
    return QString::fromUtf8(PQhostaddr(connection.get()));
}

// Whether another address of the same server may do better.
bool isOfTheWay(CKError::Code code) {
    return code == CKError::Code::NetworkUnavailable || code == CKError::Code::NetworkFailure;
}

QStringList addressesOf(const QString& host) {
    if (host.startsWith(u'/') || host.startsWith(u'@')) return {QString()};
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* first = nullptr;
    if (::getaddrinfo(host.toUtf8().constData(), nullptr, &hints, &first) != 0) return {};
    const std::unique_ptr<addrinfo, decltype([](addrinfo* list) { ::freeaddrinfo(list); })> list(first);
    QStringList addresses;
    for (const addrinfo* one = first; one != nullptr; one = one->ai_next) {
        std::array<char, NI_MAXHOST> text = {};
        if (::getnameinfo(one->ai_addr, one->ai_addrlen, text.data(), text.size(), nullptr, 0,
                          NI_NUMERICHOST) == 0)
            addresses.append(QString::fromLatin1(text.data()));
    }
    return addresses;
}

} // namespace

CloudResult<QString> probeServer(const ServerParameters& parameters, const QStringList& addresses,
                                 Clock::time_point limit) {
    CloudResult<QString> result = std::unexpected(
        CKError{CKError::Code::NetworkUnavailable, QStringLiteral("the server's name has no address")});
    for (qsizetype i = 0; i < addresses.size(); ++i) {
        ServerParameters one = parameters;
        for (auto& [key, value] : one)
            if (key == QStringLiteral("hostaddr")) value = addresses[i];
        const auto now = Clock::now();
        result = probeOne(one, now + (limit - now) / (addresses.size() - i));
        if (result || !isOfTheWay(result.error().code)) break;
    }
    return result;
}

CloudResult<QString> probeServer(const ServerParameters& parameters, Clock::time_point limit) {
    return probeServer(parameters, addressesOf(valueOf(parameters, QStringLiteral("host"))), limit);
}

} // namespace platform
