#include "examples/editor/files/FileWatch.h"

#include "examples/editor/tests/TestFolder.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace tessarine::editor {
namespace {

class FileWatchTest : public ::testing::Test {
protected:
    // Through another file, as most programs save.
    void replace(const QByteArray& bytes) {
        m_folder.write(QStringLiteral("other"), bytes);
        QFile::remove(m_path);
        ASSERT_TRUE(QFile::rename(m_folder.path(QStringLiteral("other")), m_path));
    }

    TestFolder m_folder;
    const QString m_path = m_folder.write(QStringLiteral("a.txt"), "text");
    FileWatch m_watch;
    QSignalSpy m_changes{&m_watch, &FileWatch::changed};
};

TEST_F(FileWatchTest, WritingReplacingAndRemovingAreTold) {
    m_watch.watch(m_path, fileIdentity(m_path));
    m_folder.write(QStringLiteral("a.txt"), "longer text");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_changes.isEmpty(); }));
    m_watch.watch(m_path, fileIdentity(m_path));
    m_changes.clear();
    replace("replaced");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_changes.isEmpty(); }));
    m_watch.watch(m_path, fileIdentity(m_path));
    m_changes.clear();
    m_folder.write(QStringLiteral("a.txt"),
                   "and the new one is watched"); // the watch went with the file before
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_changes.isEmpty(); }));
    m_changes.clear();
    QFile::remove(m_path);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_changes.isEmpty(); }));
}

TEST_F(FileWatchTest, AFileThatComesIsTold) {
    const QString path = m_folder.path(QStringLiteral("later"));
    m_watch.watch(path, std::nullopt);
    m_folder.write(QStringLiteral("later"), "text");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_changes.isEmpty(); }));
}

TEST_F(FileWatchTest, AStateIsToldOnceAndTheKnownOneNever) {
    m_watch.watch(m_path, fileIdentity(m_path));
    m_watch.check();
    EXPECT_EQ(m_changes.count(), 0);
    m_folder.write(QStringLiteral("a.txt"), "longer text");
    m_watch.check();
    m_watch.check();
    EXPECT_EQ(m_changes.count(), 1);
}

} // namespace
} // namespace tessarine::editor
