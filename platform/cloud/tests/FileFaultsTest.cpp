#include "platform/cloud/DefaultAccount.h"
#include "platform/cloud/tests/CloudFixture.h"

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <thread>

using namespace platform;
using namespace platform::testing;
using Code = CKError::Code;

namespace {

const QString zone = QStringLiteral("zone");

class FileFaults : public ::testing::Test {
protected:
    void fill() {
        const auto store = openStore(account());
        Device device(*store, zone);
        for (int i = 0; i < 20; ++i) {
            auto one = record(QStringLiteral("record %1").arg(i), QByteArray(700, 'x'));
            one.assets = {"hash"};
            auto push = device.pushOf({one});
            push.assets = {{"hash", QByteArray(9000, 'y')}};
            ASSERT_EQ(device.push(push)->outcome, PushOutcome::Committed);
        }
    }

    QByteArray bytes() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    void setBytes(const QByteArray& content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    void runByHand(const QString& sql) {
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), path);
            database.setDatabaseName(path);
            ASSERT_TRUE(database.open());
            QSqlQuery query(database);
            ASSERT_TRUE(query.exec(sql));
        }
        QSqlDatabase::removeDatabase(path);
    }

    CloudAccount account() const { return FileAccount{path}; }

    std::optional<Code> codeOfOpening() const {
        const auto store = openCloudStore(account(), patient);
        return store ? std::nullopt : std::optional(store.error().code);
    }

    // Everything that a store can be asked for; what it answers is anybody's guess.
    void useAsItIs() const {
        const auto store = openCloudStore(account(), patient);
        if (!store) return;
        Device device(**store, zone);
        (void)device.pull(7);
        (void)(*store)->asset("hash");
        (void)(*store)->devices(zone);
        (void)(*store)->records(zone, QStringLiteral("Thing"));
        auto dead = record(QStringLiteral("record 3"));
        dead.isTombstone = true;
        auto push = device.pushOf({dead});
        push.collected = {QStringLiteral("record 3")};
        (void)device.push(push);
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Cloud.sqlite"));
};

} // namespace

TEST_F(FileFaults, AnotherProgramsFileIsLeftAsItIs) {
    runByHand(QStringLiteral("CREATE TABLE recipes (name TEXT)"));
    QByteArray before = bytes();
    EXPECT_EQ(codeOfOpening(), Code::InvalidArguments);
    EXPECT_EQ(bytes(), before);
    before = QByteArray("Dear diary,\n").repeated(1000);
    setBytes(before);
    EXPECT_EQ(codeOfOpening(), Code::InvalidArguments);
    EXPECT_EQ(bytes(), before);
}

TEST_F(FileFaults, AFileOfANewerVersionIsLeftAsItIs) {
    fill();
    runByHand(QStringLiteral("PRAGMA user_version = 2"));
    const QByteArray before = bytes();
    EXPECT_EQ(codeOfOpening(), Code::IncompatibleVersion);
    EXPECT_EQ(bytes(), before);
}

TEST_F(FileFaults, ThoseWhoMeetAtANewFileOpenItAll) {
    for (int round = 0; round < 100; ++round) {
        path = directory.filePath(QStringLiteral("%1.sqlite").arg(round));
        std::array<std::optional<Code>, 3> codes;
        {
            std::barrier together(codes.size());
            std::vector<std::jthread> programs;
            for (auto& code : codes)
                programs.emplace_back([&] {
                    together.arrive_and_wait();
                    code = codeOfOpening();
                });
        }
        for (const auto& code : codes)
            ASSERT_EQ(code, std::nullopt) << "round " << round;
    }
}

TEST_F(FileFaults, AFolderThatIsNotThereIsNoWayToTheFile) {
    path = directory.filePath(QStringLiteral("unmounted/Cloud.sqlite"));
    EXPECT_EQ(codeOfOpening(), Code::NetworkUnavailable);
    path = directory.path();
    EXPECT_EQ(codeOfOpening(), Code::NetworkUnavailable);
}

// The folder is there and may be written to, but the disk that has the file is not mounted on it.
TEST_F(FileFaults, TheProgramMakesNoFileAndTheAccountsMakesOneForItsOwner) {
    const auto opened = defaultStoreOpener()(account());
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().code, Code::NetworkUnavailable);
    EXPECT_FALSE(QFile::exists(path));
    path = directory.filePath(QStringLiteral("a %20 #?\u00e9"));
    fill();
    const auto all = QFile::permissions(path);
    EXPECT_TRUE(all & QFile::WriteOwner);
    EXPECT_FALSE(all & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther));
    EXPECT_TRUE(defaultStoreOpener()(account()));
    setBytes({}); // by hand, as an administrator may
    EXPECT_TRUE(defaultStoreOpener()(account()));
}

// The first two would keep the thread for ever.
TEST_F(FileFaults, AFileWithOtherTablesThanOursIsRefused) {
    const QString endless = QStringLiteral("(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)"
                                           " SELECT max(i) FROM n)");
    const auto isRefusedWith = [this](const QStringList& crafting) {
        fill();
        for (const QString& sql : crafting)
            runByHand(sql);
        const bool isRefused = codeOfOpening() == Code::ServiceUnavailable;
        return QFile::remove(path) && isRefused;
    };
    EXPECT_TRUE(isRefusedWith(
        {QStringLiteral("DROP TABLE quillet_heads"),
         QStringLiteral("CREATE VIEW quillet_heads AS SELECT '' owner, x'' epoch, %1 revision, x'' tag")
             .arg(endless)}));
    EXPECT_TRUE(isRefusedWith(
        {QStringLiteral("CREATE TRIGGER t BEFORE INSERT ON quillet_records BEGIN SELECT %1; END")
             .arg(endless)}));
    EXPECT_TRUE(isRefusedWith({QStringLiteral("DROP INDEX quillet_asset_uses_by_hash")}));
    EXPECT_TRUE(isRefusedWith({QStringLiteral("ALTER TABLE quillet_zones ADD COLUMN more TEXT")}));
}

TEST_F(FileFaults, AFileThatIsReplacedIsOpenedAnewAndOneThatGoesIsNotMadeAgain) {
    fill();
    const QByteArray backup = bytes();
    const auto store = openStore(account());
    Device device(*store, zone);
    ASSERT_TRUE(device.pull());
    ASSERT_EQ(device.push({record(QStringLiteral("after the backup"))})->revision, 21);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(store->revision().error().code, Code::NetworkUnavailable);
    EXPECT_FALSE(QFile::exists(path));
    setBytes(backup);
    EXPECT_EQ(store->revision(), 20);
    ASSERT_TRUE(device.pull());
    EXPECT_FALSE(device.isKnownHistory);
}

TEST_F(FileFaults, AFileThatAnotherProgramLocksIsBusyUntilItLetsGo) {
    fill();
    const auto store = openStore(account(), std::chrono::milliseconds(50));
    {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), path);
        database.setDatabaseName(path);
        ASSERT_TRUE(database.open());
        ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("BEGIN EXCLUSIVE")));
        EXPECT_EQ(store->revision().error().code, Code::RequestRateLimited);
        EXPECT_EQ(store->saveZone(zone).error().code, Code::RequestRateLimited);
    }
    QSqlDatabase::removeDatabase(path);
    EXPECT_TRUE(store->saveZone(zone));
    EXPECT_EQ(store->revision(), 21);
}

TEST_F(FileFaults, ATruncatedOrDamagedFileCrashesNothing) {
    fill();
    const QByteArray whole = bytes();
    for (qsizetype size = 0; size < whole.size(); size += 1531) {
        setBytes(whole.left(size));
        useAsItIs();
    }
    constexpr int rounds = 150;
    for (unsigned seed = 0; seed < rounds; ++seed) {
        SCOPED_TRACE(seed);
        QRandomGenerator random(seed);
        QByteArray damaged = whole;
        for (int i = 0; i < 30; ++i)
            damaged[random.bounded(static_cast<int>(damaged.size()))] =
                static_cast<char>(random.bounded(256));
        setBytes(damaged);
        useAsItIs();
    }
    setBytes(whole.left(whole.size() / 2)); // and one where it must be noticed
    const auto store = openCloudStore(account(), patient);
    EXPECT_FALSE(store && Device(**store, zone).pull());
}
