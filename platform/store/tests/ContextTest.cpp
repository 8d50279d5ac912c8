#include "platform/store/FetchedResultsController.h"
#include "platform/store/tests/ShelfModel.h"

#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

class ContextTest : public ::testing::Test {
protected:
    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
};

TEST_F(ContextTest, EveryTypeOfValueComesBackAfterAReopen) {
    const auto bought = QDateTime::fromMSecsSinceEpoch(1700000000123, Qt::UTC);
    const QByteArray cover("\x00\xFF\x80", 3);
    {
        Library library(path);
        auto book = library.make("Book", QStringLiteral("Ünïcode 😀"));
        book->setValue(shelf::Pages, -32768);
        book->setValue(shelf::Bought, bought);
        book->setValue(shelf::Cover, cover);
        book->setValue(shelf::Read, true);
        library.make("Book", QStringLiteral("bare"));
        ASSERT_TRUE(library.context.save());
    }
    Library library(path);
    for (const auto& book : library.all("Book")) {
        if (book->value(shelf::Title) == QStringLiteral("bare")) {
            for (const auto index : {shelf::Pages, shelf::Bought, shelf::Cover, shelf::Read})
                EXPECT_TRUE(book->value(index).isNull());
            continue;
        }
        EXPECT_EQ(book->value(shelf::Title).toString(), QStringLiteral("Ünïcode 😀"));
        EXPECT_EQ(book->value(shelf::Pages).toInt(), -32768);
        EXPECT_EQ(book->value(shelf::Bought).toDateTime(), bought);
        EXPECT_EQ(book->value(shelf::Cover).toByteArray(), cover);
        EXPECT_TRUE(book->value(shelf::Read).toBool());
    }
}

TEST_F(ContextTest, HostileTextsComeBackUnitForUnit) {
    const QString texts[] = {QString::fromUtf8("\0a\0", 3),
                             QStringLiteral("a\r\nb\rc\nd") + QChar(u'\u2028'),
                             QString(QChar(char16_t{0xDC00})) + QChar(char16_t{0xD800}) + u'x',
                             QStringLiteral("\uFEFFbyte order mark in front"),
                             QStringLiteral("no\uFFFEcharacter\uFFFF"),
                             QStringLiteral(""),
                             QString()};
    for (const QString& text : texts) {
        QFile::remove(path);
        {
            Library library(path);
            library.make("Book", text);
            ASSERT_TRUE(library.context.save());
        }
        const QVariant read = Library(path).all("Book").at(0)->value(shelf::Title);
        EXPECT_FALSE(read.isNull());
        EXPECT_EQ(read.toString(), text);
    }
}

TEST_F(ContextTest, BothEndsOfARelationshipMoveTogether) {
    Library library(path);
    auto book = library.make("Book", QStringLiteral("b"));
    auto first = library.make("Shelf");
    auto second = library.make("Shelf");
    auto author = library.make("Author");
    book->setToOne(shelf::OnShelf, first.get());
    second->addToMany(shelf::Books, *book);
    EXPECT_EQ(book->toOne(shelf::OnShelf), second.get());
    EXPECT_TRUE(first->toMany(shelf::Books).isEmpty());
    author->addToMany(shelf::Books, *book);
    EXPECT_TRUE(book->toMany(shelf::Authors).contains(author.get()));
    book->removeFromMany(shelf::Authors, *author);
    EXPECT_TRUE(author->toMany(shelf::Books).isEmpty());
}

TEST_F(ContextTest, DeletionNullifiesAndCascades) {
    {
        Library library(path);
        auto book = library.make("Book", QStringLiteral("b"));
        auto keptBook = library.make("Book", QStringLiteral("kept"));
        auto shelfObject = library.make("Shelf");
        auto author = library.make("Author");
        for (const auto& each : {book, keptBook}) {
            each->setToOne(shelf::OnShelf, shelfObject.get());
            each->addToMany(shelf::Authors, *author);
            library.make("Note")->setToOne(shelf::Books, each.get());
        }
        ASSERT_TRUE(library.context.save());
        library.context.deleteObject(*book);
        library.context.deleteObject(*book); // no further effect
        library.context.deleteObject(*shelfObject);
        EXPECT_EQ(book->context(), nullptr);
        EXPECT_EQ(keptBook->toOne(shelf::OnShelf), nullptr);
        ASSERT_TRUE(library.context.save());
    }
    Library library(path);
    ASSERT_EQ(library.all("Book").size(), 1U);
    EXPECT_EQ(library.all("Note").size(), 1U);
    EXPECT_TRUE(library.all("Shelf").empty());
    EXPECT_EQ(library.all("Author").at(0)->toMany(shelf::Books).size(), 1);
}

TEST_F(ContextTest, ASaveWithNothingChangedDoesNotTouchTheFile) {
    Library library(path);
    library.make("Book", QStringLiteral("b"))->setValue(shelf::Pages, 3);
    ASSERT_TRUE(library.context.save());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    library.all("Book").at(0)->setValue(shelf::Pages, 3);
    EXPECT_FALSE(library.context.hasChanges());
    ASSERT_TRUE(library.context.save());
    file.seek(0);
    EXPECT_EQ(file.readAll(), before);
}

TEST_F(ContextTest, FetchFiltersSortsAndLimits) {
    Library library(path);
    for (const int pages : {5, 1, 4, 2, 3})
        library.make("Book", QStringLiteral("b"))->setValue(shelf::Pages, pages);
    FetchRequest request{QStringLiteral("Book"),
                         {{shelf::Pages, Qt::DescendingOrder}},
                         [](const ManagedObject& book) { return book.value(shelf::Pages).toInt() != 4; },
                         2};
    const auto found = library.context.fetch(request);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0]->value(shelf::Pages).toInt(), 5);
    EXPECT_EQ(found[1]->value(shelf::Pages).toInt(), 3);
}

TEST_F(ContextTest, FetchedResultsChangeOnceASaveThatTouchesTheirEntity) {
    Library library(path);
    FetchedResultsController books({QStringLiteral("Book"), {}, {}, {}}, library.context);
    books.performFetch();
    int changes = 0;
    books.setDidChangeContent([&] { ++changes; });
    auto author = library.make("Author");
    ASSERT_TRUE(library.context.save());
    EXPECT_EQ(changes, 0);
    auto book = library.make("Book", QStringLiteral("a"));
    library.make("Book", QStringLiteral("b"));
    ASSERT_TRUE(library.context.save());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(books.fetchedObjects().size(), 2U);
    author->addToMany(shelf::Books, *book); // a relation touches both ends
    ASSERT_TRUE(library.context.save());
    EXPECT_EQ(changes, 2);
    library.context.deleteObject(*book);
    ASSERT_TRUE(library.context.save());
    EXPECT_EQ(books.fetchedObjects().size(), 1U);
}

} // namespace
