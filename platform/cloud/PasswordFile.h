#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CloudAccount.h"

namespace platform {

// The line of libpq's password file that has the password of one account. The password is written and never
// read. Keeps nothing in memory; any thread.
class PasswordFile {
public:
    // What PGPASSFILE names, else ~/.pgpass.
    static QString defaultPath();

    explicit PasswordFile(QString path = defaultPath())
        : m_path(std::move(path)) {}

    // Both leave every other line byte for byte, replace the file as a whole, and give it mode 0600, without
    // which libpq does not look at it. On an error the file is as it was.

    // The line stands where libpq finds it before any other that would match, so that this password counts.
    CloudResult<void> write(const ServerAccount& account, const QString& password) const;
    CloudResult<void> remove(const ServerAccount& account) const;

    // Whether both have their password in the same line. A socket's folder may share it with localhost.
    static bool shareLine(const ServerAccount& one, const ServerAccount& other);

private:
    QString m_path;
};

} // namespace platform
