#include "platform/foundation/TextFile.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace platform;

namespace {

class TextFile : public ::testing::Test {
protected:
    QTemporaryDir directory;

    std::expected<QString, TextFileError> read(const QByteArray& bytes) const {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return readTextFile(path());
    }

    QString path() const { return directory.filePath(QStringLiteral("file")); }

    static TextFileError errorOf(const std::expected<QString, TextFileError>& text) {
        EXPECT_FALSE(text);
        return text ? TextFileError::Unreadable : text.error();
    }
};

TEST_F(TextFile, IsReadInTheEncodingThatItHas) {
    const QString text = QString::fromUtf8("é\r\n😀\n");
    EXPECT_EQ(read(text.toUtf8()).value(), text);
    EXPECT_EQ(read("\xEF\xBB\xBF" + text.toUtf8()).value(), text);
    const QByteArray little(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    EXPECT_EQ(read("\xFF\xFE" + little).value(), text);
    QByteArray big = little;
    for (qsizetype i = 0; i + 1 < big.size(); i += 2)
        std::swap(big[i], big[i + 1]);
    EXPECT_EQ(read("\xFE\xFF" + big).value(), text);
    EXPECT_EQ(read("caf\xE9\n").value(), QStringLiteral("café\n"));
    EXPECT_EQ(read("cut \xC3").value(), QStringLiteral("cut Ã"));
    EXPECT_EQ(read("").value(), QString());
}

TEST_F(TextFile, WhatIsNoTextIsRefused) {
    EXPECT_EQ(errorOf(read(QByteArray("a\0b", 3))), TextFileError::Binary);
    EXPECT_EQ(errorOf(read(QByteArray("\xFF\xFE\0\0a\0\0\0", 8))), TextFileError::Binary);
    EXPECT_EQ(errorOf(read("\xFF\xFE!")), TextFileError::Binary);
    EXPECT_EQ(errorOf(read(QByteArray((16 << 20) + 1, 'x'))), TextFileError::TooLarge);
    EXPECT_EQ(read(QByteArray(16 << 20, 'x')).value().size(), 16 << 20);
}

TEST_F(TextFile, WhatIsNoFileIsNotWaitedFor) {
    EXPECT_EQ(errorOf(readTextFile(directory.path())), TextFileError::NotAFile);
    EXPECT_EQ(errorOf(readTextFile(QStringLiteral("/dev/zero"))), TextFileError::NotAFile);
    EXPECT_EQ(errorOf(readTextFile(path())), TextFileError::Unreadable);
    ASSERT_EQ(mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    EXPECT_EQ(errorOf(readTextFile(path())), TextFileError::NotAFile);
}

} // namespace
