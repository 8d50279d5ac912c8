#include "platform/store/StoreSchema.h"
#include "platform/store/tests/FaultVfs.h"
#include "platform/store/tests/MixedLibrary.h"

#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

// A store as the first version of the file had it.
class Upgrade : public ::testing::Test {
protected:
    void SetUp() override {
        {
            Library library(path);
            shelf::fill(library, 9);
            ASSERT_TRUE(library.context.save());
            before = shelf::dump(library.context);
        }
        shelf::makeFirstVersion(path);
        bytes = shelf::bytesOf(path);
    }

    void run(std::initializer_list<const char*> statements) const {
        auto connection = SqliteConnection::open(path, SqliteConnection::Access::ReadWrite);
        for (const char* statement : statements)
            ASSERT_TRUE((*connection)->run(QString::fromLatin1(statement))) << statement;
    }

    int version() const { return SqliteStore::metadata(path).value().fileVersion; }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    QByteArray before; // a dump
    QByteArray bytes;
};

TEST_F(Upgrade, HappensWhenTheStoreIsOpenedAndNotBefore) {
    ASSERT_EQ(version(), 1);
    EXPECT_EQ(shelf::bytesOf(path), bytes);
    EXPECT_EQ(shelf::storedDump(path), before);
    EXPECT_EQ(version(), currentFileVersion);
    EXPECT_EQ(shelf::storedDump(path), before);
}

TEST_F(Upgrade, ATableTooManyOrTooFewIsRefusedInEitherVersion) {
    const auto expectDamaged = [this] {
        const QByteArray found = shelf::bytesOf(path);
        EXPECT_EQ(Library(path).error.value().kind, StoreError::Kind::Corrupt);
        EXPECT_EQ(shelf::bytesOf(path), found);
    };
    run({"PRAGMA user_version = 2"});
    expectDamaged();
    shelf::putFile(path, bytes);
    run({"CREATE TABLE other (x)"});
    expectDamaged();
    shelf::putFile(path, bytes);
    ASSERT_FALSE(Library(path).error);
    run({"PRAGMA user_version = 1"});
    expectDamaged();
    run({"PRAGMA user_version = 2", "DROP INDEX \"_Mirror_dead\""});
    expectDamaged();
}

TEST_F(Upgrade, GoesWithAMigration) {
    const auto model = shelf::makeModel(QStringLiteral("isbn"));
    const Library library(path, model, SqliteStore::Migration::Infer);
    ASSERT_FALSE(library.error) << library.error->message.toStdString();
    EXPECT_EQ(version(), currentFileVersion);
}

TEST_F(Upgrade, AFailingOneLeavesTheStoreToTheNextStart) {
    bool met = true;
    int n = 0;
    while (met) {
        SCOPED_TRACE(++n);
        shelf::putFile(path, bytes);
        FaultVfs vfs;
        vfs.failAt(n, SQLITE_IOERR, FaultVfs::Failing::Once);
        const bool opened = !Library(path).error;
        met = vfs.met();
        ASSERT_NE(opened, met);
        vfs.repair();
        ASSERT_EQ(shelf::storedDump(path), before);
        ASSERT_EQ(version(), currentFileVersion);
    }
    EXPECT_GT(n, 10) << "the upgrade did not go through the VFS";
}

TEST_F(Upgrade, APowerCutLeavesOneVersionOrTheOther) {
    bool met = true;
    int n = 0;
    while (met) {
        SCOPED_TRACE(++n);
        shelf::putFile(path, bytes);
        {
            FaultVfs vfs;
            vfs.cutPowerAt(n);
            const Library library(path);
            met = vfs.met();
            vfs.powerCut(static_cast<std::uint32_t>(n));
        }
        ASSERT_TRUE(SqliteStore::metadata(path));
        ASSERT_EQ(shelf::storedDump(path), before);
        ASSERT_EQ(version(), currentFileVersion);
    }
    EXPECT_GT(n, 10) << "the upgrade did not go through the VFS";
}

} // namespace
