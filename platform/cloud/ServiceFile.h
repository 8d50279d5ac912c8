#pragma once

#include "platform/cloud/AccountResult.h"

namespace platform {

// The section [quillet] of libpq's service file, which says where the user's private database is.
//
// Keys of a server: host, port, dbname, user, sslmode, sslrootcert. A database in a file is the one key
// "dbname=sqlite:/absolute/path". As libpq has it, the first section of a name counts, and in it the first
// line of a key. Keeps nothing in memory; any thread.
class ServiceFile {
public:
    // What PGSERVICEFILE names, else ~/.pg_service.conf.
    static QString defaultPath();

    explicit ServiceFile(QString path = defaultPath())
        : m_path(std::move(path)) {}

    const QString& path() const { return m_path; }

    // Nothing where there is no file or no section. InvalidArguments where the file cannot be read, or the
    // section is no account.
    AccountResult account() const;

    // Both leave the other sections byte for byte; write() leaves the foreign keys and comments of this one
    // too, which remove() takes away. The file is replaced as a whole, with mode 0600, also where the account
    // is the same. On an error it is as it was.
    CloudResult<void> write(const CloudAccount& account) const;
    CloudResult<void> remove() const;

private:
    QString m_path;
};

} // namespace platform
