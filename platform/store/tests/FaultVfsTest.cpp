#include "platform/store/tests/FaultVfs.h"

#include "platform/store/tests/MixedLibrary.h"

#include <QtCore/QFile>
#include <gtest/gtest.h>

#include <set>

namespace {

// That the power cuts of FaultVfs are worth something: they undo what was not synced, and only that.
class FaultVfsTest : public ::testing::Test {
protected:
    struct Closer {
        void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    };

    using Database = std::unique_ptr<sqlite3, Closer>;

    Database open() const {
        sqlite3* database = nullptr;
        sqlite3_open(path.toUtf8().constData(), &database);
        return Database(database);
    }

    static int run(const Database& database, const char* sql) {
        return sqlite3_exec(database.get(), sql, nullptr, nullptr, nullptr);
    }

    // -1 where it cannot be read.
    int rows() const {
        int count = -1;
        const auto keep = [](void* result, int, char** values, char**) {
            *static_cast<int*>(result) = std::atoi(values[0]);
            return 0;
        };
        sqlite3_exec(open().get(), "SELECT count(*) FROM t", keep, &count, nullptr);
        return count;
    }

    // The counts of rows that power cuts of many seeds leave after a second row was committed.
    std::set<int> rowsAfterCuts(const char* synchronous) const {
        EXPECT_EQ(run(open(), "CREATE TABLE t (x); INSERT INTO t VALUES (zeroblob(9000))"), SQLITE_OK);
        const QByteArray oneRow = shelf::bytesOf(path);
        std::set<int> found;
        for (std::uint32_t seed = 1; seed <= 30; ++seed) {
            shelf::putFile(path, oneRow);
            {
                FaultVfs vfs;
                const auto database = open();
                EXPECT_EQ(run(database, synchronous), SQLITE_OK);
                EXPECT_EQ(run(database, "INSERT INTO t VALUES (zeroblob(9000))"), SQLITE_OK);
                vfs.powerCut(seed);
            }
            found.insert(rows());
        }
        QFile::remove(path);
        QFile::remove(path + QStringLiteral("-journal"));
        return found;
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("t.sqlite"));
};

TEST_F(FaultVfsTest, APowerCutTakesWhatWasNotSynced) {
    EXPECT_EQ(rowsAfterCuts("PRAGMA synchronous = EXTRA"), std::set{2});
    EXPECT_EQ(rowsAfterCuts("PRAGMA synchronous = FULL"), (std::set{1, 2})) << "a deletion of the journal";
    EXPECT_GT(rowsAfterCuts("PRAGMA synchronous = OFF").size(), 1U);
}

TEST_F(FaultVfsTest, FailsTheOperationThatItIsAskedTo) {
    FaultVfs vfs;
    const auto database = open();
    EXPECT_EQ(run(database, "CREATE TABLE t (x)"), SQLITE_OK);
    const int operations = vfs.operations();
    EXPECT_GT(operations, 5);
    vfs.failAt(2, SQLITE_FULL, FaultVfs::Failing::FromThenOn);
    EXPECT_EQ(run(database, "INSERT INTO t VALUES (1)"), SQLITE_FULL);
    EXPECT_TRUE(vfs.met());
    EXPECT_EQ(run(database, "INSERT INTO t VALUES (1)"), SQLITE_FULL);
    vfs.repair();
    EXPECT_EQ(run(database, "INSERT INTO t VALUES (1)"), SQLITE_OK);
    EXPECT_EQ(rows(), 1);
}

} // namespace
