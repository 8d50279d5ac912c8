#include "platform/store/tests/MixedLibrary.h"

#include <QtCore/QProcess>
#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

// Another process with a lock on the file, for the time it lives.
class LockHolder {
public:
    LockHolder(const QString& path, const std::string& lock) {
        m_process.start(QStringLiteral(LOCK_HOLDER), {path, QString::fromStdString(lock)});
        m_process.waitForReadyRead();
        EXPECT_EQ(m_process.readAllStandardOutput(), "locked\n");
    }

    ~LockHolder() {
        m_process.closeWriteChannel();
        EXPECT_TRUE(m_process.waitForFinished());
        EXPECT_EQ(m_process.exitCode(), 0);
    }

    LockHolder(const LockHolder&) = delete;
    LockHolder& operator=(const LockHolder&) = delete;

private:
    QProcess m_process;
};

// The parameter is the lock.
class OtherProcess : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        Library library(path);
        shelf::fill(library, 12);
        ASSERT_TRUE(library.context.save());
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
};

// A reader lets a save begin and stops it at its commit, a writer at once.
TEST_P(OtherProcess, MakesASaveFailAsBusyAndTheNextOneAfterItCarriesTheChanges) {
    const QByteArray before = shelf::storedDump(path);
    Library library(path);
    shelf::edit(library);
    const QByteArray after = shelf::dump(library.context);
    {
        const LockHolder holder(path, GetParam());
        for (int attempt = 0; attempt < 2; ++attempt) {
            const auto saved = library.context.save();
            ASSERT_FALSE(saved);
            EXPECT_EQ(saved.error().kind, StoreError::Kind::Busy) << saved.error().message.toStdString();
            EXPECT_TRUE(library.context.hasChanges());
        }
    }
    EXPECT_EQ(shelf::storedDump(path), before);
    const auto saved = library.context.save();
    ASSERT_TRUE(saved) << saved.error().message.toStdString();
    EXPECT_EQ(shelf::storedDump(path), after);
}

TEST_P(OtherProcess, LetsAStoreOpenUnlessItIsAloneWithIt) {
    const QByteArray stored = shelf::storedDump(path);
    {
        const LockHolder holder(path, GetParam());
        Library library(path);
        if (GetParam() == "alone") {
            ASSERT_TRUE(library.error);
            EXPECT_EQ(library.error->kind, StoreError::Kind::Busy) << library.error->message.toStdString();
        } else {
            ASSERT_FALSE(library.error) << library.error->message.toStdString();
            EXPECT_EQ(shelf::dump(library.context), stored);
        }
    }
    EXPECT_EQ(shelf::storedDump(path), stored);
}

INSTANTIATE_TEST_SUITE_P(Locks, OtherProcess, ::testing::Values("reading", "writing", "alone"),
                         [](const auto& lock) { return lock.param; });

} // namespace
