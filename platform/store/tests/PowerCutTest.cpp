#include "platform/store/tests/FaultVfs.h"
#include "platform/store/tests/MixedLibrary.h"
#include "platform/store/tests/SpillingCache.h"

#include <QtCore/QFile>
#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

// The parameter seeds what each of the cuts leaves.
class PowerCut : public ::testing::TestWithParam<std::uint32_t> {
protected:
    std::uint32_t seedOf(int n) const { return GetParam() * 1'000'003 + static_cast<std::uint32_t>(n); }

    // What SQLite finds wrong in the file, or "ok".
    QString integrity() const {
        auto connection = SqliteConnection::open(path, SqliteConnection::Access::ReadOnly);
        return (*connection)->scalar(QStringLiteral("PRAGMA integrity_check")).value().toString();
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    SpillingCache spilling;
};

// Between two saves the order of the operations differs, so that the n-th of all may not come upon the few
// that matter most; those are gone through on their own.
TEST_P(PowerCut, LeavesASaveWholeOrUndoneAndWholeOnceItReturned) {
    {
        Library library(path);
        shelf::fill(library, 12);
        ASSERT_TRUE(library.context.save());
    }
    const QByteArray original = shelf::bytesOf(path);
    const QByteArray before = shelf::storedDump(path);
    using enum FaultVfs::Operation;
    for (const auto& [sort, least] : {std::pair(Any, 50), std::pair(Sync, 3), std::pair(Delete, 1)}) {
        bool met = true;
        int n = 0;
        while (met) {
            SCOPED_TRACE(::testing::Message()
                         << "operation " << ++n << " of sort " << static_cast<int>(sort));
            shelf::putFile(path, original);
            QByteArray after;
            bool hasReturned = false;
            {
                FaultVfs vfs;
                Library library(path);
                shelf::edit(library);
                after = shelf::dump(library.context);
                vfs.cutPowerAt(n, sort);
                hasReturned = library.context.save().has_value();
                met = vfs.met();
                vfs.powerCut(seedOf(n));
            }
            const QByteArray found = shelf::storedDump(path);
            if (hasReturned) {
                ASSERT_EQ(found, after);
            } else {
                ASSERT_TRUE(found == before || found == after) << found.constData();
            }
            ASSERT_EQ(integrity(), QStringLiteral("ok"));
        }
        EXPECT_GT(n, least) << "the saves did not go through the VFS";
    }
}

TEST_P(PowerCut, InTheCreationOfAStoreLeavesOneThatCanBeUsed) {
    bool met = true;
    int n = 0;
    while (met) {
        SCOPED_TRACE(++n);
        {
            FaultVfs vfs;
            vfs.cutPowerAt(n);
            const Library library(path);
            met = vfs.met();
            ASSERT_NE(met, !library.error);
            vfs.powerCut(seedOf(n));
        }
        {
            Library library(path);
            ASSERT_FALSE(library.error) << library.error->message.toStdString();
            ASSERT_TRUE(library.all("Book").empty());
            shelf::fill(library, 1);
            ASSERT_TRUE(library.context.save());
        }
        ASSERT_EQ(integrity(), QStringLiteral("ok"));
        ASSERT_EQ(Library(path).all("Book").size(), 1U);
        ASSERT_TRUE(QFile::remove(path));
    }
    EXPECT_GT(n, 10) << "the creation did not go through the VFS";
}

INSTANTIATE_TEST_SUITE_P(Seeds, PowerCut, ::testing::Range(1U, 6U), ::testing::PrintToStringParamName());

} // namespace
