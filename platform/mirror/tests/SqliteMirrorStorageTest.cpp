#include "platform/mirror/SqliteMirrorStorage.h"

#include "platform/mirror/MirrorValue.h"
#include "platform/mirror/TextValue.h"
#include "platform/mirror/tests/MirroredLibrary.h"
#include "platform/store/StoreMetadata.h"

#include <QtCore/QCborArray>
#include <QtCore/QDateTime>
#include <gtest/gtest.h>

using namespace platform;
using mirrored::Device;

namespace {

const QUuid deviceName(QStringLiteral("{aaaaaaaa-0000-4000-8000-00000000000a}"));
const QUuid otherName(QStringLiteral("{bbbbbbbb-0000-4000-8000-00000000000b}"));

QUuid id(const char* of) {
    return QUuid::createUuidV5(QUuid(), QString::fromLatin1(of));
}

class SqliteMirrorStorageTest : public ::testing::Test {
protected:
    ObjectState stateOf(const char* entity, const char* property, const QCborValue& value) {
        ObjectState state;
        state.entity = QString::fromLatin1(entity);
        write(state, property, value);
        return state;
    }

    void write(ObjectState& state, const char* property, const QCborValue& value) {
        state.write(QString::fromLatin1(property), next(), value);
    }

    Stamp next() { return {HybridClock::fromWall(1'600'000'000'000) + ++counter, otherName}; }

    ObjectState bookOf(const char* title) { return stateOf("Book", "title", QString::fromLatin1(title)); }

    // A note of the book.
    ObjectState noteOf(const char* book) {
        auto note = stateOf("Note", "name", QStringLiteral("note"));
        write(note, "book", referenceTo(id(book)));
        return note;
    }

    static ObjectState deleted(ObjectState state) {
        state.markDeleted(state.latest().time);
        return state;
    }

    ManagedObject* only(const char* entity) {
        device.merge();
        const auto all = device.all(entity);
        return all.size() == 1 ? all[0].get() : nullptr;
    }

    // What a state is after the store has had it.
    bool isHeldWhole(const QUuid& of, const ObjectState& state) { return device.state(of) == state; }

    std::uint64_t counter = 0;
    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    Device device{path, deviceName};
};

TEST_F(SqliteMirrorStorageTest, AnObjectComesChangesAndGoes) {
    auto state = bookOf("new");
    write(state, "pages", 7);
    write(state, "bought", qint64{1'650'000'000'123});
    write(state, "cover", QByteArray("\0\xFF", 2));
    write(state, "read", true);
    device.join(id("book"), state);
    const auto* book = only("Book");
    ASSERT_NE(book, nullptr);
    EXPECT_EQ(book->objectID(), id("book"));
    EXPECT_EQ(book->value(shelf::Title), QStringLiteral("new"));
    EXPECT_EQ(book->value(shelf::Pages), 7);
    EXPECT_EQ(book->value(shelf::Bought).toDateTime().toMSecsSinceEpoch(), 1'650'000'000'123);
    EXPECT_EQ(book->value(shelf::Cover), QByteArray("\0\xFF", 2));
    EXPECT_EQ(book->value(shelf::Read), true);
    EXPECT_TRUE(isHeldWhole(id("book"), state));
    write(state, "title", QByteArray("\xED\xA0\x80")); // a lone surrogate
    write(state, "cover", nullptr);
    device.join(id("book"), state);
    ASSERT_EQ(only("Book"), book);
    EXPECT_EQ(book->value(shelf::Title).toString(), QString(QChar(char16_t(0xD800))));
    EXPECT_TRUE(book->value(shelf::Cover).isNull());
    EXPECT_TRUE(isHeldWhole(id("book"), state));
    device.join(id("book"), deleted(state));
    EXPECT_EQ(only("Book"), nullptr);
    EXPECT_TRUE(isHeldWhole(id("book"), deleted(state)));
    EXPECT_TRUE(device.outbox().empty());
}

TEST_F(SqliteMirrorStorageTest, OnlyRowsThatChangeGetANewRevision) {
    const auto revisions = [this] {
        auto connection = SqliteConnection::open(path, SqliteConnection::Access::ReadOnly);
        return std::pair(storeRevision(**connection).value(),
                         (*connection)
                             ->scalar(QStringLiteral("SELECT \"_rev\" FROM \"Book\" WHERE \"_id\" = ?"),
                                      {id("book").toRfc4122()})
                             .value()
                             .toLongLong());
    };
    device.join(id("book"), bookOf("kept"));
    const auto before = revisions();
    device.put(id("book"), device.object(id("book")).value());
    auto carried = device.state(id("book"));
    write(carried, "unheard of", 7);
    device.join(id("book"), carried);
    EXPECT_EQ(revisions(), before);
    device.join(id("shelf"), stateOf("Shelf", "name", QStringLiteral("oak")));
    EXPECT_EQ(revisions(), std::pair(before.first + 1, before.second));
}

TEST_F(SqliteMirrorStorageTest, ReferencesAreShownWhileTheirTargetIs) {
    auto book = bookOf("book");
    write(book, "shelf", referenceTo(id("shelf")));
    device.join(id("book"), book);
    auto author = stateOf("Author", "name", QStringLiteral("somebody"));
    author.setMember(QStringLiteral("books"), id("book"), next(), true);
    author.setMember(QStringLiteral("books"), id("later"), next(), true);
    device.join(id("author"), author);
    EXPECT_EQ(only("Book")->toOne(shelf::OnShelf), nullptr);
    const auto shelf = stateOf("Shelf", "name", QStringLiteral("oak"));
    device.join(id("shelf"), shelf);
    ASSERT_NE(only("Shelf"), nullptr);
    EXPECT_EQ(only("Book")->toOne(shelf::OnShelf), only("Shelf"));
    EXPECT_EQ(only("Author")->toMany(shelf::Books).size(), 1U);
    device.join(id("shelf"), deleted(shelf));
    EXPECT_EQ(only("Book")->toOne(shelf::OnShelf), nullptr);
    device.join(id("book"), deleted(book));
    EXPECT_TRUE(only("Author")->toMany(shelf::Books).isEmpty());
    // Writes that the deletions had not seen.
    auto again = shelf;
    write(again, "name", QStringLiteral("ash"));
    device.join(id("shelf"), again);
    write(book, "title", QStringLiteral("again"));
    device.join(id("book"), book);
    EXPECT_EQ(only("Book")->toOne(shelf::OnShelf), only("Shelf"));
    EXPECT_TRUE(only("Author")->toMany(shelf::Books).contains(only("Book")));
    EXPECT_TRUE(device.outbox().empty());
}

TEST_F(SqliteMirrorStorageTest, APartKeepsItsWholeForAsLongAsItIsThere) {
    const auto book = bookOf("book");
    const auto note = noteOf("book");
    device.join(id("book"), deleted(book));
    EXPECT_FALSE(device.isShown(id("book")));
    device.join(id("note"), note);
    EXPECT_EQ(only("Note")->toOne(shelf::Books), only("Book"));
    EXPECT_NE(only("Book"), nullptr);
    auto moved = note;
    write(moved, "book", referenceTo(id("elsewhere")));
    device.join(id("note"), moved);
    EXPECT_EQ(only("Book"), nullptr);
    EXPECT_NE(only("Note"), nullptr);
    write(moved, "book", referenceTo(id("book")));
    device.join(id("note"), moved);
    EXPECT_NE(only("Book"), nullptr);
    device.join(id("note"), deleted(moved));
    EXPECT_EQ(only("Book"), nullptr);
    // A collected whole is not known any more, and its part waits for it.
    device.join(id("note"), noteOf("book"));
    ASSERT_TRUE(device.storage->transaction([&] { return device.storage->remove(id("book")); }));
    EXPECT_EQ(only("Book"), nullptr);
    device.join(id("book"), deleted(book));
    EXPECT_EQ(only("Note")->toOne(shelf::Books), only("Book"));
}

TEST_F(SqliteMirrorStorageTest, ADeletedWholeComesBackForAPartThatTheDeletionDidNotTake) {
    device.join(id("book"), bookOf("book"));
    auto* book = only("Book");
    device.join(id("note"), noteOf("book"));
    device.context.deleteObject(*book); // before the note is merged
    device.save();
    EXPECT_FALSE(device.state(id("book")).isAlive());
    EXPECT_TRUE(device.isShown(id("book")));
    EXPECT_EQ(only("Note")->toOne(shelf::Books), only("Book"));
    EXPECT_NE(only("Book"), nullptr);
}

TEST_F(SqliteMirrorStorageTest, WhatTheModelCannotHoldIsKeptAndNotShown) {
    auto unknown = stateOf("Gadget", "name", QStringLiteral("x"));
    unknown.unknown.insert(99, QStringLiteral("newer"));
    auto titleless = stateOf("Book", "pages", 7);
    auto untitled = stateOf("Book", "title", nullptr);
    std::map<QUuid, ObjectState> held{
        {id("unknown"), unknown}, {id("titleless"), titleless}, {id("untitled"), untitled}};
    int number = 0;
    const auto add = [&](const char* property, const QCborValue& value) {
        auto state = bookOf("held back");
        write(state, property, value);
        held[id(qPrintable(QString::number(++number)))] = state;
    };
    add("title", 7);
    add("title", QCborArray{1});
    add("pages", 40'000);
    add("pages", 1.5);
    add("read", 1);
    add("bought", QStringLiteral("today"));
    add("cover", QStringLiteral("text"));
    add("shelf", QByteArray("short"));
    add("shelf", QByteArray(16, '\0'));
    held[QUuid()] = bookOf("no identity");
    for (const auto& [of, state] : held)
        device.join(of, state);
    device.merge();
    EXPECT_TRUE(device.all("Book").empty());
    for (const auto& [of, state] : held)
        EXPECT_TRUE(isHeldWhole(of, state)) << of.toString().toStdString();
    // Shown once, and then of a value that is none: that is kept, and what is shown stays until a later one.
    auto state = bookOf("shown");
    device.join(id("changing"), state);
    EXPECT_NE(only("Book"), nullptr);
    write(state, "title", false);
    device.join(id("changing"), state);
    ASSERT_NE(only("Book"), nullptr);
    EXPECT_EQ(only("Book")->value(shelf::Title), QStringLiteral("shown"));
    EXPECT_TRUE(isHeldWhole(id("changing"), state));
    write(state, "title", QStringLiteral("right"));
    device.join(id("changing"), state);
    ASSERT_NE(only("Book"), nullptr);
    EXPECT_EQ(only("Book")->value(shelf::Title), QStringLiteral("right"));
    // Relations that are none.
    auto odd = stateOf("Author", "name", QStringLiteral("odd"));
    odd.setMember(QStringLiteral("books"), QUuid(), next(), true);
    odd.setMember(QStringLiteral("books"), id("author"), next(), true);
    odd.setMember(QStringLiteral("nothing"), id("changing"), next(), true);
    write(odd, "books", 7);
    device.join(id("author"), odd);
    EXPECT_NE(only("Author"), nullptr);
    EXPECT_TRUE(isHeldWhole(id("author"), odd));
}

// No correct device writes that, but a record can say anything.
TEST_F(SqliteMirrorStorageTest, AnObjectThatTurnsIntoAnotherEntityTakesTheOldOnesPlace) {
    const auto turn = [this](const char* of, const ObjectState& state) {
        auto object = device.object(id(of)).value_or(MirroredObject());
        object.state.join(state);
        object.state.entity = state.entity;
        device.put(id(of), object);
    };
    turn("unread", ObjectState());
    turn("unread", bookOf("at last"));
    turn("thing", stateOf("Shelf", "name", QStringLiteral("oak")));
    auto* shelf = only("Shelf");
    auto* book = only("Book");
    book->setToOne(shelf::OnShelf, shelf);
    device.save();
    shelf->setValue(shelf::Name, QStringLiteral("edited"));
    const auto kept = shelf->shared_from_this();
    turn("thing", stateOf("Author", "name", QStringLiteral("oak")));
    device.save();
    EXPECT_EQ(only("Shelf"), nullptr);
    EXPECT_NE(only("Author"), nullptr);
    EXPECT_EQ(book->toOne(shelf::OnShelf), nullptr);
    EXPECT_EQ(shelf::storedDump(path), shelf::dump(device.context));
}

TEST_F(SqliteMirrorStorageTest, ANewerModelShowsWhatLayUnknown) {
    auto book = bookOf("book");
    write(book, "isbn", QStringLiteral("978"));
    device.join(id("book"), book);
    auto entities = mirrored::model()->entities();
    entities[0].attributes.push_back({QStringLiteral("isbn"), AttributeType::String, Presence::Optional});
    entities[0].attributes.push_back(
        {QStringLiteral("copies"), AttributeType::Integer16, Presence::Required, [] { return QVariant(1); }});
    Device newer(path, deviceName, std::make_shared<const ManagedObjectModel>(std::move(entities), 2),
                 SqliteStore::Migration::Infer);
    ASSERT_FALSE(newer.error) << newer.error->message.toStdString();
    const auto books = newer.all("Book");
    ASSERT_EQ(books.size(), 1U);
    EXPECT_EQ(books[0]->value(5), QStringLiteral("978"));
    EXPECT_EQ(books[0]->value(6), 1);
    EXPECT_EQ(newer.state(id("book")), book);
    newer.join(id("other"), bookOf("other"));
    EXPECT_TRUE(newer.isShown(id("other")));
    EXPECT_EQ(SqliteMirrorStorage::open(path, mirrored::model()).error().kind,
              StoreError::Kind::Incompatible);
}

TEST_F(SqliteMirrorStorageTest, KeepsProgressAndWhatIsKnownOfTheServer) {
    MirrorProgress progress;
    progress.device = otherName;
    progress.clock = HybridClock::fromWall(1'700'000'000'000) + 5;
    progress.epoch = id("epoch");
    progress.position = {7, QStringLiteral("name")};
    progress.tag = id("tag");
    progress.lastTag = id("last");
    progress.unconfirmedTags = {id("one"), id("two")};
    progress.reading = 3;
    progress.isReadingFully = true;
    progress.horizon = 11;
    MirroredObject object;
    object.state = bookOf("book");
    object.bases[QStringLiteral("title")] = object.state.registers.begin()->second;
    object.revision = 4;
    object.reading = 2;
    object.sent = 17;
    object.parked = "newer";
    auto& storage = *device.storage;
    ASSERT_TRUE(storage.transaction([&]() -> StoreResult<void> {
        STORE_TRY(storage.setProgress(progress));
        return storage.put(id("book"), object);
    }));
    const auto failed = storage.transaction([&]() -> StoreResult<void> {
        STORE_TRY(storage.setProgress({}));
        STORE_TRY(storage.put(id("other"), object));
        return std::unexpected(StoreError{StoreError::Kind::Other, QStringLiteral("no")});
    });
    EXPECT_FALSE(failed);
    ASSERT_TRUE(storage.transaction([&]() -> StoreResult<void> {
        EXPECT_EQ(storage.progress().value(), progress);
        EXPECT_EQ(storage.all().value(), std::vector{id("book")});
        const auto found = storage.object(id("book")).value().value();
        EXPECT_EQ(found.bases, object.bases);
        EXPECT_EQ(found.revision, 4);
        EXPECT_EQ(found.reading, 2);
        EXPECT_EQ(found.sent, 17U);
        EXPECT_EQ(found.parked, "newer");
        EXPECT_EQ(storage.parked().value(), std::vector{id("book")});
        EXPECT_EQ(storage.notMetBy(3).value(), std::vector{id("book")});
        EXPECT_TRUE(storage.notMetBy(2).value().empty());
        EXPECT_EQ(storage.shownCount().value(), 1);
        const auto change = storage.nextChange().value();
        EXPECT_EQ(storage.nextChange().value(), change + 1);
        auto changed = found;
        changed.change = change;
        EXPECT_TRUE(storage.put(id("book"), changed));
        EXPECT_TRUE(storage.outbox(9).value().empty()); // parked
        changed.parked.clear();
        EXPECT_TRUE(storage.put(id("book"), changed));
        EXPECT_EQ(storage.outbox(9).value(), std::vector{id("book")});
        EXPECT_TRUE(storage.notMetBy(3).value().empty());
        changed.change = 0;
        changed.state = deleted(changed.state);
        EXPECT_TRUE(storage.put(id("book"), changed));
        EXPECT_EQ(storage.deadUpTo(4).value(), std::vector{id("book")});
        EXPECT_TRUE(storage.deadUpTo(3).value().empty());
        EXPECT_TRUE(storage.remove(id("book")));
        EXPECT_FALSE(storage.object(id("book")).value());
        return {};
    }));
}

TEST_F(SqliteMirrorStorageTest, WaitsForASaveAndIsThenBusy) {
    auto other = SqliteConnection::open(path, SqliteConnection::Access::Existing);
    ASSERT_TRUE((*other)->run(QStringLiteral("BEGIN IMMEDIATE")));
    const auto blocked = device.storage->transaction([] { return StoreResult<void>(); });
    ASSERT_FALSE(blocked);
    EXPECT_EQ(blocked.error().kind, StoreError::Kind::Busy);
    ASSERT_TRUE((*other)->run(QStringLiteral("ROLLBACK")));
    EXPECT_TRUE(device.storage->transaction([] { return StoreResult<void>(); }));
}

} // namespace
