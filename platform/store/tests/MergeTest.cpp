#include "platform/store/tests/FaultVfs.h"
#include "platform/store/tests/MixedLibrary.h"

#include <gtest/gtest.h>

using namespace platform;
using shelf::Library;

namespace {

// One book on a shelf, by an author and with a note, in a store that several contexts open.
class Merge : public ::testing::Test {
protected:
    // A library with the objects of the store at hand; covers are not read yet.
    struct Peer : Library {
        explicit Peer(const QString& path)
            : Library(path)
            , book(all("Book").at(0))
            , author(all("Author").at(0))
            , shelf(all("Shelf").at(0))
            , note(all("Note").at(0)) {}

        std::shared_ptr<ManagedObject> book;
        std::shared_ptr<ManagedObject> author;
        std::shared_ptr<ManagedObject> shelf;
        std::shared_ptr<ManagedObject> note;
    };

    void SetUp() override {
        Library library(path);
        const auto book = library.make("Book", QStringLiteral("book"));
        book->setValue(shelf::Cover, QByteArray("cover"));
        book->addToMany(shelf::Authors, *library.make("Author", QStringLiteral("author")));
        book->setToOne(shelf::OnShelf, library.make("Shelf", QStringLiteral("shelf")).get());
        book->addToMany(shelf::Notes, *library.make("Note", QStringLiteral("note")));
        ASSERT_TRUE(library.context.save());
    }

    static void removeAndSave(Peer& peer, ManagedObject& object) {
        peer.context.deleteObject(object);
        ASSERT_TRUE(peer.context.save());
    }

    // The commit is made, and SQLite reports it as failed.
    static void saveWithAFalseReport(Library& library, FaultVfs& vfs) {
        vfs.failAt(1, SQLITE_IOERR_DIR_FSYNC, FaultVfs::Failing::Once, FaultVfs::Operation::Delete);
        ASSERT_FALSE(library.context.save());
        ASSERT_TRUE(vfs.met());
        vfs.repair();
    }

    // Everybody saves and merges; then all hold what the store holds.
    void expectAgreement(std::initializer_list<Library*> libraries) {
        for (auto* library : libraries)
            ASSERT_TRUE(library->context.save());
        for (auto* library : libraries)
            ASSERT_TRUE(library->context.mergeChanges());
        const QByteArray stored = shelf::storedDump(path);
        for (auto* library : libraries)
            EXPECT_EQ(shelf::dump(library->context), stored);
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
};

TEST_F(Merge, AMembershipThatBothCutCanBeMadeAgain) {
    Peer here(path);
    Peer there(path);
    for (auto* peer : {&here, &there})
        peer->author->removeFromMany(shelf::Books, *peer->book);
    ASSERT_TRUE(there.context.save());
    ASSERT_TRUE(here.context.mergeChanges());
    here.author->addToMany(shelf::Books, *here.book);
    expectAgreement({&here, &there});
    EXPECT_TRUE(there.author->toMany(shelf::Books).contains(there.book.get()));
}

TEST_F(Merge, WhatBothDeletedCanBeBroughtBack) {
    Peer here(path);
    Peer there(path);
    EXPECT_EQ(here.book->value(shelf::Cover).toByteArray(), "cover");
    here.context.deleteObject(*here.book);
    removeAndSave(there, *there.book);
    ASSERT_TRUE(here.context.mergeChanges());
    here.context.insert(here.book);
    here.author->addToMany(shelf::Books, *here.book);
    expectAgreement({&here, &there});
    ASSERT_EQ(there.all("Book").size(), 1U);
    EXPECT_EQ(there.all("Book").at(0)->value(shelf::Cover).toByteArray(), "cover");
    EXPECT_EQ(there.author->toMany(shelf::Books).size(), 1U);
}

TEST_F(Merge, WhatIsBroughtBackIsRelatedAsItWasBroughtBack) {
    for (const bool deletesAuthor : {true, false}) {
        SCOPED_TRACE(deletesAuthor);
        Peer here(path);
        Peer there(path);
        const auto author = there.make("Author");
        const auto book = there.make("Book", QStringLiteral("other"));
        ASSERT_TRUE(there.context.save());
        ASSERT_TRUE(here.context.mergeChanges());
        const auto deleted = deletesAuthor ? here.author : here.book;
        here.context.deleteObject(*deleted);
        deletesAuthor ? there.author->addToMany(shelf::Books, *book)
                      : author->addToMany(shelf::Books, *there.book);
        ASSERT_TRUE(there.context.save());
        ASSERT_TRUE(here.context.mergeChanges());
        here.context.insert(deleted);
        expectAgreement({&here, &there});
        EXPECT_TRUE(
            deleted->toMany(deletesAuthor ? qsizetype{shelf::Books} : qsizetype{shelf::Authors}).isEmpty());
    }
}

TEST_F(Merge, WhatWasDeletedAndWrittenAnewHasOnlyItsNewMemberships) {
    Peer here(path);
    Peer there(path);
    EXPECT_EQ(there.book->value(shelf::Cover).toByteArray(), "cover");
    removeAndSave(there, *there.book);
    there.context.insert(there.book);
    expectAgreement({&there, &here});
    EXPECT_TRUE(here.author->toMany(shelf::Books).isEmpty());
}

TEST_F(Merge, AnObjectThatTwoWriteAnewIsTheSameToBoth) {
    Peer first(path);
    Peer second(path);
    Peer third(path);
    const auto book = third.make("Book", QStringLiteral("other"));
    ASSERT_TRUE(third.context.save());
    for (auto* peer : {&first, &second}) {
        ASSERT_TRUE(peer->context.mergeChanges());
        peer->author->setValue(shelf::Name, QStringLiteral("changed"));
    }
    removeAndSave(third, *third.author);
    second.author->addToMany(shelf::Books, *second.all("Book").at(1));
    ASSERT_TRUE(first.context.mergeChanges());
    ASSERT_TRUE(second.context.save());
    expectAgreement({&first, &second, &third});
    EXPECT_EQ(third.all("Author").at(0)->value(shelf::Name).toString(), QStringLiteral("changed"));
}

TEST_F(Merge, AFalseReportOfAFailedSaveLosesNoChangeThatFollows) {
    FaultVfs vfs;
    Peer here(path);
    here.author->removeFromMany(shelf::Books, *here.book);
    const auto second = here.make("Author", QStringLiteral("second"));
    const auto third = here.make("Author", QStringLiteral("third"));
    second->addToMany(shelf::Books, *here.book);
    saveWithAFalseReport(here, vfs);
    here.author->addToMany(shelf::Books, *here.book);
    second->removeFromMany(shelf::Books, *here.book);
    here.context.deleteObject(*third);
    const QByteArray expected = shelf::dump(here.context);
    ASSERT_TRUE(here.context.save());
    EXPECT_EQ(shelf::dump(here.context), expected);
    EXPECT_EQ(shelf::storedDump(path), expected);
}

struct Change {
    const char* name;
    std::function<void(ManagedObject& book, ManagedObject& author, ManagedObject& shelf, ManagedObject& note)>
        make;
};

std::ostream& operator<<(std::ostream& stream, const Change& change) {
    return stream << change.name;
}

class EveryChange : public Merge, public ::testing::WithParamInterface<Change> {};

// A change of the book's row, or of something that refers to it.
TEST_P(EveryChange, OfADeletedObjectBringsItBackWhole) {
    {
        Library library(path);
        library.make("Author", QStringLiteral("~other"));
        library.make("Shelf", QStringLiteral("~other"));
        library.make("Note", QStringLiteral("~other"));
        ASSERT_TRUE(library.context.save());
    }
    Peer here(path);
    Peer there(path);
    GetParam().make(*here.book, *here.all("Author").at(1), *here.all("Shelf").at(1), *here.all("Note").at(1));
    removeAndSave(there, *there.book);
    expectAgreement({&here, &there});
    ASSERT_EQ(there.all("Book").size(), 1U);
    EXPECT_EQ(there.all("Book").at(0)->value(shelf::Title).toString(), QStringLiteral("book"));
    EXPECT_EQ(there.all("Book").at(0)->value(shelf::Cover).toByteArray(), "cover");
}

INSTANTIATE_TEST_SUITE_P(
    Changes, EveryChange,
    ::testing::Values(
        Change{"Value", [](auto& book, auto&, auto&, auto&) { book.setValue(shelf::Pages, 3); }},
        Change{"OtherShelf",
               [](auto& book, auto&, auto& shelf, auto&) { book.setToOne(shelf::OnShelf, &shelf); }},
        Change{"NoShelf", [](auto& book, auto&, auto&, auto&) { book.setToOne(shelf::OnShelf, nullptr); }},
        Change{"OntoShelf",
               [](auto& book, auto&, auto& shelf, auto&) { shelf.addToMany(shelf::Books, book); }},
        Change{"OffShelf", [](auto& book, auto&, auto&,
                              auto&) { book.toOne(shelf::OnShelf)->removeFromMany(shelf::Books, book); }},
        Change{"AuthorToBook",
               [](auto& book, auto& author, auto&, auto&) { book.addToMany(shelf::Authors, author); }},
        Change{"BookToAuthor",
               [](auto& book, auto& author, auto&, auto&) { author.addToMany(shelf::Books, book); }},
        Change{"NoteToBook",
               [](auto& book, auto&, auto&, auto& note) { book.addToMany(shelf::Notes, note); }},
        Change{"BookOfNote",
               [](auto& book, auto&, auto&, auto& note) { note.setToOne(shelf::Books, &book); }}),
    ::testing::PrintToStringParamName());

TEST_F(Merge, ADeletionHereWinsOverWhatWasNotSeen) {
    Peer here(path);
    Peer there(path);
    here.context.deleteObject(*here.book);
    there.book->setValue(shelf::Title, QStringLiteral("changed"));
    const auto note = there.make("Note", QStringLiteral("late"));
    note->setToOne(shelf::Books, there.book.get());
    ASSERT_TRUE(there.context.save());
    expectAgreement({&here, &there});
    EXPECT_TRUE(there.all("Book").empty());
    ASSERT_EQ(there.all("Note").size(), 1U);
    EXPECT_EQ(note->toOne(shelf::Books), nullptr);
}

} // namespace
