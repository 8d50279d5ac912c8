#include "account/Explanation.h"

namespace account {

using Code = platform::CKError::Code;

namespace {

QString summaryOf(Code code) {
    switch (code) {
    case Code::NetworkUnavailable:
        return QStringLiteral("It cannot be reached. Check the name, the port and the network.");
    case Code::NetworkFailure:
        return QStringLiteral("The connection broke off before it answered.");
    case Code::NotAuthenticated:
        return QStringLiteral("You were not let in. Check the user, the password and the CA file.");
    case Code::PermissionFailure:
        return QStringLiteral("You were let in, but may not use this database.");
    case Code::ServiceUnavailable:
        return QStringLiteral(
            "It was reached, but cannot serve. Its database may not be set up for Quillet yet.");
    case Code::RequestRateLimited:
        return QStringLiteral("It has too much to do right now. Try again later.");
    case Code::IncompatibleVersion:
        return QStringLiteral("Its database is a newer Quillet's. Update this one.");
    case Code::QuotaExceeded:
        return QStringLiteral("It has no room left.");
    case Code::InvalidArguments:
        return QStringLiteral("This account cannot be used.");
    default:
        return QStringLiteral("Something unexpected went wrong.");
    }
}

struct NameOf {
    QString operator()(const platform::ServerAccount& server) const {
        return QStringLiteral("%1 on %2, as %3").arg(server.database, server.host, server.user);
    }

    QString operator()(const platform::FileAccount& file) const { return file.path; }
};

} // namespace

QString explanationOf(const platform::CKError& error) {
    const QString summary = summaryOf(error.code);
    return error.message.isEmpty() ? summary : QStringLiteral("%1\n%2").arg(summary, error.message.trimmed());
}

QString nameOf(const platform::CloudAccount& account) {
    return std::visit(NameOf(), account);
}

} // namespace account
