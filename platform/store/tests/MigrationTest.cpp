#include "platform/store/ModelArchive.h"
#include "platform/store/tests/FileSizeLimit.h"
#include "platform/store/tests/MixedLibrary.h"

#include <QtCore/QDir>
#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

using Entities = std::vector<EntityDescription>;

Entities shelfEntities() {
    return shelf::makeModel()->entities();
}

class Migration : public ::testing::Test {
protected:
    void SetUp() override {
        Library library(path);
        shelf::fill(library, 9);
        ASSERT_TRUE(library.context.save());
        before = shelf::dump(library.context);
        bytes = shelf::bytesOf(path);
    }

    // The store opened with another model, with or without leave to migrate.
    Library opened(Entities entities, SqliteStore::Migration migration = SqliteStore::Migration::Infer) {
        return Library(path, std::make_shared<const ManagedObjectModel>(std::move(entities), 2), migration);
    }

    QStringList copies() const {
        return QDir(directory.path()).entryList({QStringLiteral("Shelf.sqlite.*")}, QDir::Files);
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    QByteArray before; // a dump
    QByteArray bytes;
};

TEST_F(Migration, TheModelComesBackFromItsArchive) {
    const QByteArray archive = archiveModel(shelfEntities());
    const auto read = unarchiveModel(archive);
    ASSERT_TRUE(read);
    EXPECT_EQ(archiveModel(*read), archive);
    for (qsizetype length = 0; length < archive.size(); ++length)
        EXPECT_FALSE(unarchiveModel(archive.left(length)));
    for (const char* broken : {"[{}]", "[1]", R"([{"name":"A","attributes":[{"name":"x","type":"float"}]}])",
                               R"([{"name":"A","relationships":[{"name":"b","destination":"B"}]}])"})
        EXPECT_FALSE(unarchiveModel(broken)) << broken;
}

TEST_F(Migration, AttributesComeGoAndChangeTheirNames) {
    auto entities = shelfEntities();
    auto& book = entities[0];
    book.attributes[shelf::Title].renamedFrom = QStringLiteral("title");
    book.attributes[shelf::Title].name = QStringLiteral("heading");
    book.attributes.erase(book.attributes.begin() + shelf::Bought);
    book.attributes.push_back({QStringLiteral("isbn"), AttributeType::String, Presence::Optional});
    book.attributes.push_back(
        {QStringLiteral("copies"), AttributeType::Integer16, Presence::Required, [] { return QVariant(1); }});
    auto library = opened(entities);
    ASSERT_FALSE(library.error) << library.error->message.toStdString();
    const auto books = library.all("Book");
    ASSERT_EQ(books.size(), 9U);
    for (std::size_t i = 0; i < books.size(); ++i) {
        EXPECT_EQ(books[i]->value(0).toString(), QStringLiteral("book %1").arg(i));
        EXPECT_EQ(books[i]->value(1).toInt(), static_cast<int>(i)); // pages
        EXPECT_TRUE(books[i]->value(4).isNull());                   // isbn
        EXPECT_EQ(books[i]->value(5).toInt(), 1);                   // copies
        EXPECT_EQ(books[i]->toMany(shelf::Authors).size(), 2U);
        EXPECT_NE(books[i]->toOne(shelf::OnShelf), nullptr);
    }
    // The migrated store is an ordinary one: a second start finds it as it is.
    books[0]->setValue(5, 7);
    ASSERT_TRUE(library.context.save());
    EXPECT_FALSE(opened(entities, SqliteStore::Migration::Refuse).error);
}

TEST_F(Migration, AnOptionalAttributeBecomesRequiredByItsDefault) {
    {
        Library library(path);
        library.make("Book", QStringLiteral("without pages"));
        ASSERT_TRUE(library.context.save());
    }
    auto entities = shelfEntities();
    auto& pages = entities[0].attributes[shelf::Pages];
    pages.presence = Presence::Required;
    EXPECT_EQ(opened(entities).error.value().kind, StoreError::Kind::Incompatible);
    pages.makeDefault = [] { return QVariant(99); };
    auto library = opened(entities);
    ASSERT_FALSE(library.error) << library.error->message.toStdString();
    for (const auto& book : library.all("Book"))
        EXPECT_EQ(book->value(shelf::Pages).toInt() == 99,
                  book->value(shelf::Title) == QStringLiteral("without pages"));
}

TEST_F(Migration, EntitiesAndRelationshipsChangeTheirNamesAndTheirJoinTablesTheirOwner) {
    auto entities = shelfEntities();
    // "Author" owned the join table; as "Writer" it comes behind "Book", which owns it now.
    auto& author = entities[2];
    author.renamedFrom = author.name;
    author.name = QStringLiteral("Writer");
    author.relationships[0].renamedFrom = author.relationships[0].name;
    author.relationships[0].name = QStringLiteral("works");
    auto& authors = entities[0].relationships[shelf::Authors];
    authors.destination = author.name;
    authors.inverse = QStringLiteral("works");
    auto library = opened(entities);
    ASSERT_FALSE(library.error) << library.error->message.toStdString();
    const auto writers = library.all("Writer");
    ASSERT_EQ(writers.size(), 4U);
    std::size_t works = 0;
    for (const auto& writer : writers)
        works += writer->toMany(shelf::Books).size();
    EXPECT_EQ(works, 18U); // two authors a book
}

TEST_F(Migration, WhatCannotBeInferredIsRefusedAndLeftAlone) {
    auto retyped = shelfEntities();
    retyped[0].attributes[shelf::Pages].type = AttributeType::String;
    auto widened = shelfEntities();
    widened[0].relationships[shelf::OnShelf].cardinality = Cardinality::ToMany;
    Entities unrelated{{QStringLiteral("Star"), {}, {}}};
    for (const auto& entities : {retyped, widened, unrelated}) {
        EXPECT_EQ(opened(entities).error.value().kind, StoreError::Kind::Incompatible);
        EXPECT_EQ(shelf::bytesOf(path), bytes);
    }
    auto wider = shelfEntities();
    wider[0].attributes.push_back({QStringLiteral("isbn"), AttributeType::String, Presence::Optional});
    EXPECT_EQ(opened(wider, SqliteStore::Migration::Refuse).error.value().kind,
              StoreError::Kind::Incompatible);
    EXPECT_EQ(shelf::bytesOf(path), bytes);
    EXPECT_TRUE(copies().isEmpty());
}

TEST_F(Migration, AVerifiedCopyOfTheOldStoreStays) {
    auto entities = shelfEntities();
    entities[0].attributes.pop_back();
    ASSERT_FALSE(opened(entities).error);
    ASSERT_EQ(copies().size(), 1);
    EXPECT_EQ(shelf::storedDump(directory.filePath(copies()[0])), before);
}

TEST_F(Migration, ACopyThatFailsLeavesNothingBehindAndStopsTheMigration) {
    auto entities = shelfEntities();
    entities[0].attributes.pop_back();
    {
        const shelf::FileSizeLimit limit(bytes.size() / 2);
        EXPECT_TRUE(opened(entities).error);
    }
    EXPECT_TRUE(copies().isEmpty());
    EXPECT_EQ(shelf::bytesOf(path), bytes);
    EXPECT_FALSE(opened(entities).error);
}

TEST_F(Migration, AStoreOfALaterModelIsLeftAlone) {
    auto entities = shelfEntities();
    entities[0].attributes.push_back({QStringLiteral("isbn"), AttributeType::String, Presence::Optional});
    ASSERT_FALSE(opened(entities).error);
    const QByteArray later = shelf::bytesOf(path);
    const Library older(path, shelf::makeModel(), SqliteStore::Migration::Infer);
    EXPECT_EQ(older.error.value().kind, StoreError::Kind::TooNew);
    EXPECT_EQ(shelf::bytesOf(path), later);
}

} // namespace
