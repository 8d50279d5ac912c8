#include "platform/store/tests/MixedLibrary.h"

#include <QtCore/QFile>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace platform;
using shelf::Library;

namespace {

constexpr uid_t nobody = 65534;

// File permissions do not hold for root, so for a while somebody else is at work.
class OrdinaryUser {
public:
    OrdinaryUser()
        : m_before(geteuid()) {
        if (m_before == 0) {
            EXPECT_EQ(seteuid(nobody), 0);
        }
    }

    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_before), 0); }

    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    uid_t m_before;
};

class ReadOnly : public ::testing::Test {
protected:
    void SetUp() override {
        Library library(path);
        shelf::fill(library, 12);
        ASSERT_TRUE(library.context.save());
        stored = shelf::dump(library.context);
    }

    void TearDown() override { permit(0700, 0600); }

    void permit(mode_t ofFolder, mode_t ofFile) const {
        ASSERT_EQ(chmod(QFile::encodeName(directory.path()).constData(), ofFolder), 0);
        ASSERT_EQ(chmod(QFile::encodeName(path).constData(), ofFile), 0);
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    QByteArray stored;
};

void expectReadOnlySave(Library& library) {
    const auto saved = library.context.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, StoreError::Kind::ReadOnly) << saved.error().message.toStdString();
    EXPECT_TRUE(library.context.hasChanges());
}

TEST_F(ReadOnly, AFileThatMayNotBeWrittenShowsItsObjectsAndFailsSaves) {
    permit(0555, 0444);
    {
        const OrdinaryUser user;
        Library library(path);
        ASSERT_FALSE(library.error) << library.error->message.toStdString();
        EXPECT_EQ(shelf::dump(library.context), stored);
        shelf::edit(library);
        expectReadOnlySave(library);
        expectReadOnlySave(library);
    }
    permit(0777, 0666);
    const OrdinaryUser user;
    Library library(path);
    EXPECT_EQ(shelf::dump(library.context), stored);
    shelf::edit(library);
    ASSERT_TRUE(library.context.save());
    EXPECT_EQ(shelf::storedDump(path), shelf::dump(library.context));
}

TEST_F(ReadOnly, AFileOfAnEarlierVersionThatMayNotBeWrittenShowsItsObjectsToo) {
    shelf::makeFirstVersion(path);
    permit(0555, 0444);
    const OrdinaryUser user;
    EXPECT_EQ(shelf::storedDump(path), stored);
    Library library(path);
    shelf::edit(library);
    expectReadOnlySave(library);
}

// SQLite needs the folder for its journal.
TEST_F(ReadOnly, AFolderThatMayNotBeWrittenFailsSavesForAsLongAsThatIsSo) {
    permit(0555, 0666);
    QByteArray after;
    Library library(path);
    {
        const OrdinaryUser user;
        ASSERT_FALSE(library.error) << library.error->message.toStdString();
        shelf::edit(library);
        after = shelf::dump(library.context);
        expectReadOnlySave(library);
        EXPECT_EQ(shelf::storedDump(path), stored);
    }
    permit(0777, 0666);
    const OrdinaryUser user;
    const auto saved = library.context.save();
    ASSERT_TRUE(saved) << saved.error().message.toStdString();
    EXPECT_EQ(shelf::storedDump(path), after);
}

TEST_F(ReadOnly, AStoreCannotBeMadeInAFolderThatMayNotBeWritten) {
    permit(0555, 0444);
    const OrdinaryUser user;
    const Library library(directory.filePath(QStringLiteral("Other.sqlite")));
    ASSERT_TRUE(library.error);
    EXPECT_EQ(library.error->kind, StoreError::Kind::CannotOpen) << library.error->message.toStdString();
}

} // namespace
