#include "platform/store/tests/FaultVfs.h"
#include "platform/store/tests/MixedLibrary.h"
#include "platform/store/tests/SpillingCache.h"

#include <QtCore/QFile>
#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

// The codes are SQLite's.
struct Failure {
    const char* name;
    int code;
    FaultVfs::Operation sort;
    FaultVfs::Failing failing;
    StoreError::Kind kind;
};

std::ostream& operator<<(std::ostream& stream, const Failure& failure) {
    return stream << failure.name;
}

class SaveFaults : public ::testing::Test {
protected:
    void SetUp() override {
        Library library(path);
        shelf::fill(library, 12);
        ASSERT_TRUE(library.context.save());
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    SpillingCache spilling;
};

class EveryFault : public SaveFaults, public ::testing::WithParamInterface<Failure> {};

TEST_P(EveryFault, AFailedSaveLeavesTheStoreAsItWasAndTheNextOneWritesTheSame) {
    const Failure& failure = GetParam();
    const QByteArray original = shelf::bytesOf(path);
    const QByteArray before = shelf::storedDump(path);
    bool met = true;
    int n = 0;
    while (met) {
        SCOPED_TRACE(++n);
        shelf::putFile(path, original);
        FaultVfs vfs;
        Library library(path);
        shelf::edit(library);
        const QByteArray after = shelf::dump(library.context);
        vfs.failAt(n, failure.code, failure.failing, failure.sort);
        const auto saved = library.context.save();
        met = vfs.met();
        vfs.repair();
        if (!saved) {
            ASSERT_EQ(saved.error().kind, failure.kind) << saved.error().message.toStdString();
            ASSERT_TRUE(library.context.hasChanges());
            ASSERT_EQ(shelf::storedDump(path), before);
            const auto savedAgain = library.context.save();
            ASSERT_TRUE(savedAgain) << savedAgain.error().message.toStdString();
        }
        ASSERT_FALSE(library.context.hasChanges());
        ASSERT_EQ(shelf::dump(library.context), after);
        ASSERT_EQ(shelf::storedDump(path), after);
    }
    EXPECT_GT(n, 1) << "the saves did not go through the VFS";
}

TEST_P(EveryFault, LetsACreationBeTriedAgain) {
    const Failure& failure = GetParam();
    const QString fresh = directory.filePath(QStringLiteral("Fresh.sqlite"));
    bool met = true;
    int n = 0;
    while (met) {
        SCOPED_TRACE(++n);
        FaultVfs vfs;
        vfs.failAt(n, failure.code, failure.failing, failure.sort);
        {
            const Library library(fresh);
            met = vfs.met();
            ASSERT_EQ(library.error.has_value(), met);
        }
        vfs.repair();
        Library library(fresh);
        ASSERT_FALSE(library.error) << library.error->message.toStdString();
        library.make("Book", QStringLiteral("first"));
        ASSERT_TRUE(library.context.save());
        ASSERT_EQ(shelf::storedDump(fresh), shelf::dump(library.context));
        ASSERT_TRUE(QFile::remove(fresh));
    }
    EXPECT_GT(n, 1) << "the creation did not go through the VFS";
}

using enum FaultVfs::Operation;
using enum FaultVfs::Failing;
using enum StoreError::Kind;

INSTANTIATE_TEST_SUITE_P(
    Codes, EveryFault,
    ::testing::Values(Failure{"AnyOnce", SQLITE_IOERR, Any, Once, InputOutput},
                      Failure{"AnyFromThenOn", SQLITE_IOERR, Any, FromThenOn, InputOutput},
                      Failure{"FullOnce", SQLITE_FULL, Write, Once, Full},
                      Failure{"FullFromThenOn", SQLITE_FULL, Write, FromThenOn, Full},
                      Failure{"WriteOnce", SQLITE_IOERR_WRITE, Write, Once, InputOutput},
                      Failure{"WriteFromThenOn", SQLITE_IOERR_WRITE, Write, FromThenOn, InputOutput},
                      Failure{"SyncOnce", SQLITE_IOERR_FSYNC, Sync, Once, InputOutput},
                      Failure{"SyncFromThenOn", SQLITE_IOERR_FSYNC, Sync, FromThenOn, InputOutput},
                      Failure{"DeleteOnce", SQLITE_IOERR_DELETE, Delete, Once, InputOutput},
                      Failure{"DeleteFromThenOn", SQLITE_IOERR_DELETE, Delete, FromThenOn, InputOutput}),
    ::testing::PrintToStringParamName());

// A commit deletes its journal and then syncs the folder. Where only that sync fails, SQLite reports an error
// for a save that is in the file: the changes stay pending, and to write them once more has to work.
TEST_F(SaveFaults, AFolderThatCannotBeSyncedDoesNotStopTheNextSave) {
    FaultVfs vfs;
    Library library(path);
    shelf::edit(library);
    const QByteArray after = shelf::dump(library.context);
    vfs.failAt(1, SQLITE_IOERR_DIR_FSYNC, Once, Delete);
    const auto saved = library.context.save();
    ASSERT_TRUE(vfs.met());
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, InputOutput) << saved.error().message.toStdString();
    EXPECT_TRUE(library.context.hasChanges());
    vfs.repair();
    const auto savedAgain = library.context.save();
    EXPECT_TRUE(savedAgain) << savedAgain.error().message.toStdString();
    EXPECT_FALSE(library.context.hasChanges());
    EXPECT_EQ(shelf::storedDump(path), after);
}

} // namespace
