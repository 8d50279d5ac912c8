#include "platform/store/tests/MixedLibrary.h"

#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

// Covers are loaded on demand.
class OnDemand : public ::testing::Test {
protected:
    // Every cover is a megabyte and differs.
    static QByteArray cover(int number) { return QByteArray(1'000'000, static_cast<char>('a' + number)); }

    void addBooks(Library& library, int count) const {
        for (int i = 0; i < count; ++i) {
            const auto book = library.make("Book", QStringLiteral("b"));
            book->setValue(shelf::Pages, i);
            book->setValue(shelf::Cover, cover(i));
        }
        ASSERT_TRUE(library.context.save());
    }

    // Empties the store's covers, so that a value which still shows is one in memory.
    static bool isInStoreOnly(const ManagedObject& book, const QString& path) {
        // Gone from the file behind the context's back: what is in memory does not notice.
        auto other = SqliteConnection::open(path, SqliteConnection::Access::ReadWrite).value();
        EXPECT_TRUE(other->run(QStringLiteral("UPDATE Book SET cover = NULL")));
        return book.value(shelf::Cover).isNull();
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
};

TEST_F(OnDemand, AValueIsReadWhenAskedForAndThenStays) {
    {
        Library library(path);
        addBooks(library, 2);
    }
    Library library(path);
    const auto books = library.all("Book");
    EXPECT_EQ(books[0]->value(shelf::Cover).toByteArray(), cover(0));
    EXPECT_FALSE(isInStoreOnly(*books[0], path));
    EXPECT_TRUE(books[1]->value(shelf::Cover).isNull()) << "was read ahead of time";
}

TEST_F(OnDemand, ManyLoadedValuesAreGivenUpAgainButNotChangedOnes) {
    Library library(path);
    addBooks(library, 12);
    const auto books = library.all("Book");
    books[0]->setValue(shelf::Cover, QByteArray("new"));
    books[1]->setValue(shelf::Pages, 100); // its cover must be at hand, should another delete the book
    for (int i = 2; i < 12; ++i)
        EXPECT_EQ(books[static_cast<std::size_t>(i)]->value(shelf::Cover).toByteArray(), cover(i));
    EXPECT_TRUE(isInStoreOnly(*books[2], path));
    EXPECT_EQ(books[0]->value(shelf::Cover).toByteArray(), "new");
    EXPECT_EQ(books[1]->value(shelf::Cover).toByteArray(), cover(1));
    ASSERT_TRUE(library.context.save());
    Library reopened(path);
    EXPECT_EQ(reopened.all("Book")[0]->value(shelf::Cover).toByteArray(), "new");
}

TEST_F(OnDemand, AStoreThatCannotBeReadIsAnErrorAndNoEmptyValue) {
    Library library(path);
    {
        Library filling(path);
        addBooks(filling, 1);
    }
    ASSERT_TRUE(library.context.mergeChanges());
    const auto book = library.all("Book").at(0);
    {
        auto other = SqliteConnection::open(path, SqliteConnection::Access::ReadWrite).value();
        ASSERT_TRUE(other->run(QStringLiteral("BEGIN EXCLUSIVE")));
        EXPECT_EQ(book->readValue(shelf::Cover).error().kind, StoreError::Kind::Busy);
        // A change of another value stands all the same, and nothing writes the cover.
        book->setValue(shelf::Title, QStringLiteral("renamed"));
        ASSERT_TRUE(other->run(QStringLiteral("ROLLBACK")));
    }
    ASSERT_TRUE(library.context.save());
    Library reopened(path);
    EXPECT_EQ(reopened.all("Book").at(0)->value(shelf::Title).toString(), QStringLiteral("renamed"));
    EXPECT_EQ(book->readValue(shelf::Cover).value().toByteArray(), cover(0));
    library.context.deleteObject(*book);
    EXPECT_EQ(book->value(shelf::Cover).toByteArray(), cover(0)) << "a detached object keeps what it had";
}

TEST_F(OnDemand, AnObjectThatComesBackAfterItsRowIsGoneHasWhatWasInMemory) {
    {
        Library library(path);
        addBooks(library, 1);
    }
    Library library(path);
    const auto book = library.all("Book").at(0);
    Library other(path);
    other.context.deleteObject(*other.all("Book").at(0));
    ASSERT_TRUE(other.context.save());
    ASSERT_TRUE(library.context.mergeChanges());
    ASSERT_EQ(book->context(), nullptr);
    library.context.insert(book);
    ASSERT_TRUE(library.context.save());
    Library reopened(path);
    EXPECT_EQ(reopened.all("Book").at(0)->value(shelf::Title).toString(), QStringLiteral("b"));
    EXPECT_TRUE(reopened.all("Book").at(0)->value(shelf::Cover).isNull());
}

TEST_F(OnDemand, AnotherConnectionsChangeIsReadAnew) {
    Library library(path);
    addBooks(library, 1);
    Library other(path);
    other.all("Book")[0]->setValue(shelf::Cover, QByteArray("theirs"));
    ASSERT_TRUE(other.context.save());
    const auto book = library.all("Book")[0];
    EXPECT_EQ(book->value(shelf::Cover).toByteArray(), cover(0));
    ASSERT_TRUE(library.context.mergeChanges());
    EXPECT_EQ(book->value(shelf::Cover).toByteArray(), "theirs");
}

TEST_F(OnDemand, ChangesOfAnotherConnectionMergeByThemselves) {
    Library library(path);
    library.context.setAutomaticallyMergesChangesFromParent(true);
    int changes = 0;
    const auto subscription = library.context.onChange([&](const ContextChanges&) { ++changes; });
    Library other(path);
    addBooks(other, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !library.all("Book").empty(); }));
    EXPECT_EQ(changes, 1);
}

} // namespace
