#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CloudAccount.h"

#include <QtCore/QTemporaryDir>

#include <mutex>

namespace account {

// Connects to accounts with passwords that are not stored yet. A shared file that is not there is made, which
// the program itself never does.
//
// libpq takes passwords from a file alone, which an environment variable names. So this process is given a
// password file of its own: a copy of the user's with the password under test put in, there for the length of
// a test.
class TryConnection {
public:
    // Changes the environment of the process: to be made before there are threads, and after the path of the
    // user's own password file was asked for.
    explicit TryConnection(QString userPasswordFile);

    // Blocks up to a deadline. One test after the other, on any thread.
    platform::CloudResult<void> operator()(const platform::CloudAccount& account, const QString& password);

private:
    platform::CloudResult<void> preparePasswords(const platform::CloudAccount& account,
                                                 const QString& password) const;

    QString m_userPasswordFile;
    QTemporaryDir m_directory; // the user's alone
    QString m_passwordFile = m_directory.filePath(QStringLiteral("passwords"));
    std::mutex m_mutex; // one test at a time
};

} // namespace account
