#pragma once

#include <QtCore/QString>

#include <expected>

namespace platform {

// Why the cloud did not do what it was asked. Whatever failed has changed nothing, but for NetworkFailure: a
// request whose answer was lost may have been carried out.
struct CKError {
    // The numbers are the cloud's own and are shown to users.
    enum class Code {
        InternalError = 1,
        NetworkUnavailable = 3, // no way to the server: offline, refused, a name that does not resolve
        NetworkFailure = 4,     // the connection broke or the server fell silent
        ServiceUnavailable = 6, // the server is there and cannot serve now
        RequestRateLimited = 7, // it has too much to do; later
        NotAuthenticated = 9,   // no account, a wrong password, a certificate that does not verify
        PermissionFailure = 10,
        UnknownItem = 11,
        InvalidArguments = 12,
        IncompatibleVersion = 18, // the server's schema is a newer program's
        QuotaExceeded = 25,
        ZoneNotFound = 26,
    };
    Code code = Code::InternalError;
    QString message; // for a log, in English; never holds a password

    bool operator==(const CKError&) const = default;
};

template <typename T>
using CloudResult = std::expected<T, CKError>;

} // namespace platform
