#pragma once

#include "account/SignIn.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

namespace account {

// A user's two files in a folder of their own.
class AccountFiles : public ::testing::Test {
protected:
    static QByteArray contentsOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir directory;
    QString servicePath = directory.filePath(QStringLiteral("service"));
    QString passwordPath = directory.filePath(QStringLiteral("passwords"));
    SignIn signIn{platform::ServiceFile(servicePath), platform::PasswordFile(passwordPath)};
    platform::ServerAccount server{QStringLiteral("localhost"), 5432, QStringLiteral("d"),
                                   QStringLiteral("u"),         {},   {}};
};

} // namespace account
