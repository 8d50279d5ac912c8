#pragma once

#include <QtCore/QString>

#include <variant>

namespace platform {

// A database on a server that speaks PostgreSQL's protocol, as the section [quillet] of libpq's service file
// names it. The password stays in libpq's password file and is never read by this program.
struct ServerAccount {
    QString host; // a name, an address, or the folder of a Unix socket
    int port = 5432;
    QString database;
    QString user;
    QString sslMode;         // as written in the file; empty where it says nothing
    QString rootCertificate; // the file with the authorities that may vouch for the server; empty for none

    bool operator==(const ServerAccount&) const = default;
};

// A database in one SQLite file, which may lie on a disk that other machines share.
struct FileAccount {
    QString path; // absolute

    bool operator==(const FileAccount&) const = default;
};

// Where the user's private database is.
using CloudAccount = std::variant<ServerAccount, FileAccount>;

} // namespace platform
