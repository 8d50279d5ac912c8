#include "platform/store/tests/FileSizeLimit.h"
#include "platform/store/tests/ShelfModel.h"

#include <QtCore/QFile>
#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <thread>

using namespace platform;
using shelf::Library;

namespace {

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

class StoreFaults : public ::testing::Test {
protected:
    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));

    void makeStore() {
        Library library(path);
        library.make("Book", QStringLiteral("kept"));
        ASSERT_TRUE(library.context.save());
    }

    std::unique_ptr<SqliteConnection> otherConnection() {
        return SqliteConnection::open(path, SqliteConnection::Access::ReadWrite).value();
    }
};

TEST_F(StoreFaults, AFileThatIsNoDatabaseIsRefusedAndLeftAlone) {
    const QByteArray text = QByteArray("these are somebody's notes, not a database\n").repeated(100);
    writeBytes(path, text);
    EXPECT_FALSE(SqliteStore::metadata(path));
    const Library library(path);
    ASSERT_TRUE(library.error);
    EXPECT_EQ(library.error->kind, StoreError::Kind::NotADatabase);
    EXPECT_EQ(bytesOf(path), text);
}

TEST_F(StoreFaults, AnotherProgramsDatabaseIsRefusedAndLeftAlone) {
    ASSERT_TRUE(otherConnection()->run(QStringLiteral("CREATE TABLE theirs (x)")));
    const QByteArray before = bytesOf(path);
    const Library library(path);
    ASSERT_TRUE(library.error);
    EXPECT_EQ(library.error->kind, StoreError::Kind::NotADatabase);
    EXPECT_EQ(bytesOf(path), before);
}

TEST_F(StoreFaults, AStoreOfANewerProgramOrOfAnotherModelIsRefusedAndLeftAlone) {
    makeStore();
    QByteArray before = bytesOf(path);
    EXPECT_EQ(Library(path, shelf::makeModel(QStringLiteral("isbn"))).error->kind,
              StoreError::Kind::Incompatible);
    EXPECT_EQ(bytesOf(path), before);
    ASSERT_TRUE(otherConnection()->run(QStringLiteral("PRAGMA user_version = 99")));
    before = bytesOf(path);
    EXPECT_EQ(SqliteStore::metadata(path).error().kind, StoreError::Kind::TooNew);
    EXPECT_EQ(Library(path).error->kind, StoreError::Kind::TooNew);
    EXPECT_EQ(bytesOf(path), before);
}

TEST_F(StoreFaults, ThoseWhoMeetAtANewFileOpenItAll) {
    for (int round = 0; round < 50; ++round) {
        path = directory.filePath(QStringLiteral("%1.sqlite").arg(round));
        std::array<std::optional<StoreError>, 3> errors;
        {
            std::barrier together(errors.size());
            std::vector<std::jthread> programs;
            for (auto& error : errors)
                programs.emplace_back([&] {
                    together.arrive_and_wait();
                    const auto store = SqliteStore::open(path, shelf::makeModel());
                    if (!store) error = store.error();
                });
        }
        for (const auto& error : errors)
            ASSERT_FALSE(error) << "round " << round << ": " << error->message.toStdString();
    }
}

TEST_F(StoreFaults, AFolderThatCannotBeMadeIsAnError) {
    const QString file = directory.filePath(QStringLiteral("file"));
    writeBytes(file, "x");
    const Library library(file + QStringLiteral("/folder/Shelf.sqlite"));
    ASSERT_TRUE(library.error);
    EXPECT_EQ(library.error->kind, StoreError::Kind::CannotOpen);
}

TEST_F(StoreFaults, AnotherWritersLockFailsTheSaveAndTheNextSaveCarriesTheChange) {
    makeStore();
    Library library(path);
    library.all("Book").at(0)->setValue(shelf::Pages, 7);
    auto other = otherConnection();
    ASSERT_TRUE(other->run(QStringLiteral("BEGIN IMMEDIATE")));
    const auto blocked = library.context.save();
    ASSERT_FALSE(blocked);
    EXPECT_EQ(blocked.error().kind, StoreError::Kind::Busy);
    EXPECT_TRUE(library.context.hasChanges());
    ASSERT_TRUE(other->run(QStringLiteral("ROLLBACK")));
    ASSERT_TRUE(library.context.save());
    EXPECT_EQ(Library(path).all("Book").at(0)->value(shelf::Pages).toInt(), 7);
}

TEST_F(StoreFaults, AFullDiskRollsTheSaveBackAndKeepsItPending) {
    makeStore();
    Library library(path);
    auto big = library.make("Book", QString(200'000, u'x'));
    library.all("Book").at(0)->setValue(shelf::Pages, 9);

    auto failed = [&] {
        const shelf::FileSizeLimit limit(bytesOf(path).size() + 20'000);
        return library.context.save();
    }();

    ASSERT_FALSE(failed);
    EXPECT_TRUE(failed.error().kind == StoreError::Kind::Full ||
                failed.error().kind == StoreError::Kind::InputOutput)
        << failed.error().message.toStdString();
    EXPECT_EQ(Library(path).all("Book").size(), 1U);
    ASSERT_TRUE(library.context.save());
    EXPECT_EQ(Library(path).all("Book").size(), 2U);
}

TEST_F(StoreFaults, AMissingRequiredValueFailsTheSaveWithoutWriting) {
    Library library(path);
    library.make("Book");
    const auto saved = library.context.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().kind, StoreError::Kind::Constraint);
    library.all("Book").at(0)->setValue(shelf::Title, QStringLiteral("now"));
    EXPECT_TRUE(library.context.save());
}

TEST_F(StoreFaults, TablesThatAreNotAsTheyWereMadeAreRefused) {
    makeStore();
    const QByteArray whole = bytesOf(path);
    for (const char* statement :
         {"CREATE TRIGGER evil AFTER UPDATE ON Book BEGIN DELETE FROM Book; END", "DROP INDEX Book__rev",
          "CREATE VIEW extra AS SELECT 1", "ALTER TABLE Book ADD COLUMN more ANY"}) {
        writeBytes(path, whole);
        ASSERT_TRUE(otherConnection()->run(QString::fromLatin1(statement)));
        const QByteArray altered = bytesOf(path);
        EXPECT_EQ(SqliteStore::metadata(path).error().kind, StoreError::Kind::Corrupt) << statement;
        EXPECT_EQ(Library(path).error.value().kind, StoreError::Kind::Corrupt) << statement;
        EXPECT_EQ(bytesOf(path), altered);
    }
}

TEST_F(StoreFaults, AReferenceToAnObjectOfAnotherEntityIsNoRelation) {
    {
        Library library(path);
        const auto book = library.make("Book", QStringLiteral("b"));
        library.make("Note")->setToOne(shelf::Books, book.get());
        library.make("Shelf");
        ASSERT_TRUE(library.context.save());
    }
    auto other = otherConnection();
    ASSERT_TRUE(other->run(QStringLiteral("UPDATE Note SET book = (SELECT _id FROM Shelf)")));
    ASSERT_TRUE(
        other->run(QStringLiteral("INSERT INTO _Author_books SELECT Shelf._id, Note._id FROM Shelf, Note")));
    Library library(path);
    ASSERT_FALSE(library.error);
    EXPECT_EQ(library.all("Note").at(0)->toOne(shelf::Books), nullptr);
    EXPECT_TRUE(library.all("Shelf").at(0)->toMany(shelf::Books).isEmpty());
}

TEST_F(StoreFaults, AFileThatWasMovedAwayIsSaidToBe) {
    makeStore();
    Library library(path);
    ASSERT_TRUE(QFile::rename(path, path + QStringLiteral(".elsewhere")));
    library.make("Book", QStringLiteral("b"));
    EXPECT_EQ(library.context.save().error().kind, StoreError::Kind::Replaced);
    EXPECT_TRUE(library.context.hasChanges());
}

} // namespace
