#include "examples/editor/files/LoadFile.h"

#include "examples/editor/tests/TestFolder.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tessarine::editor {
namespace {

class LoadFileTest : public ::testing::Test {
protected:
    static LoadError::Kind kindOfError(const QString& path, std::int64_t limit = fileSizeLimit) {
        const auto loaded = loadFile(path, limit);
        if (loaded)
            ADD_FAILURE() << path.toStdString() << " was opened";
        else
            EXPECT_TRUE(loaded.error().message.contains(path)) << loaded.error().message.toStdString();
        return loaded ? LoadError::Kind::failed : loaded.error().kind;
    }

    TestFolder m_folder;
};

TEST_F(LoadFileTest, AFileComesWithItsIdentity) {
    const QString path = m_folder.write(QStringLiteral("a.txt"), "text\n");
    const auto loaded = loadFile(path);
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->contents.text.text() == u"text\n");
    EXPECT_EQ(loaded->identity, fileIdentity(path));
    EXPECT_EQ(loaded->identity.size, 5);
    EXPECT_TRUE(loadFile(m_folder.write(QStringLiteral("empty"), "")));
}

TEST_F(LoadFileTest, WhatIsNoFileOfTextIsTold) {
    EXPECT_EQ(kindOfError(m_folder.path(QStringLiteral("none"))), LoadError::Kind::notFound);
    EXPECT_EQ(kindOfError(m_folder.root()), LoadError::Kind::notAFile);
    const QString pipe = m_folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(kindOfError(pipe), LoadError::Kind::notAFile);
    EXPECT_EQ(kindOfError(m_folder.write(QStringLiteral("nul"), QByteArray("a\0b", 3))),
              LoadError::Kind::notText);
}

TEST_F(LoadFileTest, AFileOfTheLimitIsTooLarge) {
    const QString path = m_folder.write(QStringLiteral("large"), QByteArray(100, 'x'));
    EXPECT_EQ(kindOfError(path, 100), LoadError::Kind::tooLarge);
    EXPECT_TRUE(loadFile(path, 101));
}

// One of a gigabyte that takes no room on the disk.
TEST_F(LoadFileTest, AGigabyteIsRefusedAtOnce) {
    const QString path = m_folder.write(QStringLiteral("gigabyte"), "");
    ASSERT_EQ(::truncate(QFile::encodeName(path).constData(), fileSizeLimit), 0);
    EXPECT_EQ(kindOfError(path), LoadError::Kind::tooLarge);
}

} // namespace
} // namespace tessarine::editor
