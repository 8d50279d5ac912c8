#pragma once

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace platform {

// One file in a folder of its own; not there until it is put.
class TemporaryFile : public ::testing::Test {
protected:
    void put(const QByteArray& bytes) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray bytes() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    int mode() const {
        struct stat status{};
        EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
        return status.st_mode & 0777;
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("file"));
};

} // namespace platform
