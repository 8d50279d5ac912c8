#include "platform/mirror/MirrorValue.h"
#include "platform/mirror/TextValue.h"
#include "platform/mirror/tests/MirroredLibrary.h"
#include "platform/store/tests/FaultVfs.h"

#include <QtCore/QDateTime>
#include <gtest/gtest.h>

#include <algorithm>

using namespace platform;
using mirrored::Device;

namespace {

const QString title = QStringLiteral("title");
const QString noteName = QStringLiteral("name");
const QUuid deviceName(QStringLiteral("{aaaaaaaa-0000-4000-8000-00000000000a}"));
const QUuid otherName(QStringLiteral("{bbbbbbbb-0000-4000-8000-00000000000b}"));

class MirrorCaptureTest : public ::testing::Test {
protected:
    // A book on a shelf with an author and a note, saved a second ago.
    void makeBook(Device& device) {
        book = device.make("Book", QStringLiteral("kept"));
        shelf = device.make("Shelf", QStringLiteral("oak"));
        author = device.make("Author", QStringLiteral("somebody"));
        note = device.make("Note", QStringLiteral("one"));
        book->setToOne(shelf::OnShelf, shelf.get());
        book->addToMany(shelf::Authors, *author);
        note->setToOne(shelf::Books, book.get());
        device.save();
        device.sendAll();
        device.wall += 1000;
    }

    const Register& reg(const ObjectState& state, const QString& property) {
        return state.registers.at(property);
    }

    QTemporaryDir directory;
    QString path = directory.filePath(QStringLiteral("Shelf.sqlite"));
    std::shared_ptr<ManagedObject> book, shelf, author, note;
};

TEST_F(MirrorCaptureTest, AnInsertWritesEveryPropertyAndMembershipsAtTheirOwner) {
    Device device(path, deviceName);
    makeBook(device);
    const auto state = device.state(book->objectID());
    EXPECT_EQ(state.entity, QStringLiteral("Book"));
    EXPECT_EQ(reg(state, title).value, textValue(QStringLiteral("kept")));
    EXPECT_EQ(reg(state, QStringLiteral("cover")).value, QCborValue(nullptr));
    EXPECT_EQ(reg(state, QStringLiteral("shelf")).value, referenceTo(shelf->objectID()));
    EXPECT_EQ(state.registers.size(), 6U);
    for (const auto& [property, entry] : state.registers)
        EXPECT_EQ(entry.stamp.device, deviceName) << property.toStdString();
    EXPECT_TRUE(state.sets.empty()); // the author owns the pair: "Author" comes before "Book"
    const auto elements = device.state(author->objectID()).sets.at(QStringLiteral("books"));
    EXPECT_TRUE(elements.at(book->objectID()).isMember);
    const auto text = device.state(note->objectID()).registers.at(noteName);
    EXPECT_TRUE(text.seen.covers(text.stamp));
}

TEST_F(MirrorCaptureTest, AnUpdateStampsWhatDiffersAndGoesToTheEndOfTheOutbox) {
    Device device(path, deviceName);
    makeBook(device);
    const auto before = device.state(book->objectID());
    author->setValue(shelf::Name, QStringLiteral("first"));
    device.save();
    book->setValue(shelf::Title, QStringLiteral("other"));
    book->setValue(shelf::Pages, 7);
    book->setValue(shelf::Pages, QVariant());
    device.save();
    auto after = device.state(book->objectID());
    EXPECT_GE(reg(after, title).stamp.time, device.now().time);
    EXPECT_GT(reg(after, title).stamp, before.latest());
    EXPECT_EQ(reg(after, title).value, textValue(QStringLiteral("other")));
    after.registers[title] = reg(before, title);
    EXPECT_EQ(after.registers, before.registers);
    EXPECT_EQ(device.outbox(), (std::vector{author->objectID(), book->objectID()}));
    author->setValue(shelf::Name, QStringLiteral("last"));
    device.save();
    EXPECT_EQ(device.outbox(), (std::vector{book->objectID(), author->objectID()}));
}

TEST_F(MirrorCaptureTest, ReferencesAndMembershipsAreWrites) {
    Device device(path, deviceName);
    makeBook(device);
    book->setToOne(shelf::OnShelf, nullptr);
    book->removeFromMany(shelf::Authors, *author);
    device.save();
    EXPECT_EQ(reg(device.state(book->objectID()), QStringLiteral("shelf")).value, QCborValue(nullptr));
    const auto element =
        device.state(author->objectID()).sets.at(QStringLiteral("books")).at(book->objectID());
    EXPECT_FALSE(element.isMember);
    EXPECT_EQ(device.outbox().size(), 2U);
}

TEST_F(MirrorCaptureTest, ADeletionKeepsAllValuesAndWhatItEntailsIsNoWrite) {
    Device device(path, deviceName);
    makeBook(device);
    const auto before = device.state(book->objectID());
    device.context.deleteObject(*shelf);
    device.context.deleteObject(*author);
    device.save();
    EXPECT_EQ(device.outbox().size(), 2U);
    EXPECT_EQ(device.state(book->objectID()), before);
    EXPECT_EQ(book->toOne(shelf::OnShelf), nullptr);
    const auto dead = device.state(author->objectID());
    EXPECT_FALSE(dead.isAlive());
    EXPECT_TRUE(dead.sets.at(QStringLiteral("books")).at(book->objectID()).isMember);

    device.sendAll();
    device.context.deleteObject(*book);
    device.save();
    EXPECT_EQ(device.outbox().size(), 2U); // the note went with it
    auto buried = device.state(book->objectID());
    EXPECT_FALSE(buried.isAlive());
    EXPECT_FALSE(device.isShown(book->objectID()));
    EXPECT_EQ(buried.registers, before.registers);
    EXPECT_EQ(reg(device.state(note->objectID()), QStringLiteral("book")).value,
              referenceTo(book->objectID()));
    EXPECT_FALSE(device.state(note->objectID()).isAlive());
}

TEST_F(MirrorCaptureTest, TheTextAsTheServerHasItIsKeptUntilItHasTheNewOne) {
    Device device(path, deviceName);
    makeBook(device);
    const auto server = reg(device.state(note->objectID()), noteName);
    for (const char16_t* text : {u"two", u"three"}) {
        note->setValue(shelf::Name, QString::fromUtf16(text));
        device.save();
        const auto object = device.object(note->objectID()).value();
        EXPECT_EQ(object.bases.at(noteName), server);
        EXPECT_EQ(reg(object.state, noteName).value, textValue(QString::fromUtf16(text)));
        EXPECT_TRUE(reg(object.state, noteName).seen.covers(server.stamp));
    }
    book->setValue(shelf::Title, QStringLiteral("not merged"));
    const auto fresh = device.make("Note", QStringLiteral("not on the server"));
    device.save();
    fresh->setValue(shelf::Name, QStringLiteral("still not"));
    device.save();
    for (const auto& object : {book, fresh})
        EXPECT_TRUE(device.object(object->objectID()).value().bases.empty());
}

TEST_F(MirrorCaptureTest, AnEditOfWhatAnotherDeletedBringsItBackWithItsRelations) {
    Device device(path, deviceName);
    makeBook(device);
    const auto before = device.object(book->objectID()).value();
    book->setValue(shelf::Title, QStringLiteral("edited"));
    auto deleted = before;
    deleted.state.markDeleted(device.now().time);
    device.put(book->objectID(), deleted);
    device.save();
    const auto state = device.state(book->objectID());
    EXPECT_TRUE(state.isAlive());
    EXPECT_EQ(reg(state, title).value, textValue(QStringLiteral("edited")));
    EXPECT_EQ(reg(state, QStringLiteral("cover")), reg(before.state, QStringLiteral("cover")));
    device.merge();
    EXPECT_EQ(book->toOne(shelf::OnShelf), shelf.get());
    EXPECT_TRUE(book->toMany(shelf::Authors).contains(author.get()));
    EXPECT_EQ(note->toOne(shelf::Books), book.get());
}

TEST_F(MirrorCaptureTest, AMemberThatWasCutBeforeItsOwnerCameBackStaysCut) {
    Device device(path, deviceName);
    makeBook(device);
    const auto second = device.make("Book", QStringLiteral("second"));
    author->addToMany(shelf::Books, *second);
    device.save();
    author->removeFromMany(shelf::Books, *book);
    author->setValue(shelf::Name, QStringLiteral("edited"));
    auto deleted = device.object(author->objectID()).value();
    deleted.state.markDeleted(device.now().time);
    device.put(author->objectID(), deleted);
    device.save();
    const auto state = device.state(author->objectID());
    device.merge();
    EXPECT_TRUE(state.isAlive());
    EXPECT_FALSE(state.sets.at(QStringLiteral("books")).at(book->objectID()).isMember);
    EXPECT_FALSE(author->toMany(shelf::Books).contains(book.get()));
    EXPECT_TRUE(author->toMany(shelf::Books).contains(second.get()));
}

TEST_F(MirrorCaptureTest, AWholeThatLivesForItsPartsStaysWhenTheyGo) {
    Device device(path, deviceName);
    makeBook(device);
    auto dead = device.object(book->objectID()).value();
    dead.state.markDeleted(device.now().time);
    device.put(book->objectID(), dead);
    device.merge();
    ASSERT_TRUE(device.isShown(book->objectID())); // for its note
    device.context.deleteObject(*note);
    device.save();
    EXPECT_TRUE(device.state(book->objectID()).isAlive());
    EXPECT_TRUE(device.isShown(book->objectID()));
    EXPECT_EQ(device.outbox().size(), 2U);
}

TEST_F(MirrorCaptureTest, WhatWasWrittenUncapturedBecomesNewOnce) {
    QByteArray stored;
    {
        shelf::Library plain(path);
        shelf::fill(plain, 5);
        ASSERT_TRUE(plain.context.save());
        stored = shelf::dump(plain.context);
    }
    std::vector<QUuid> all;
    {
        Device device(path, deviceName);
        ASSERT_FALSE(device.error) << device.error->message.toStdString();
        EXPECT_EQ(shelf::dump(device.context), stored);
        all = device.everything();
        EXPECT_EQ(all.size(), 17U);
        EXPECT_EQ(device.outbox().size(), all.size());
        const auto first = device.all("Author")[0];
        EXPECT_EQ(device.state(first->objectID()).sets.at(QStringLiteral("books")).size(), 3U);
        device.sendAll();
    }
    Device device(path, otherName);
    EXPECT_TRUE(device.outbox().empty());
    device.make("Book", QStringLiteral("later"));
    device.save();
    const auto writer = device.state(device.outbox().at(0)).latest().device;
    EXPECT_EQ(writer, deviceName); // the file keeps its name
}

// The whole of a save is in the file or nothing of it, and what the failed one noted is not counted twice.
TEST_F(MirrorCaptureTest, ASaveAndWhatIsNotedOfItFailTogether) {
    {
        Device device(path, deviceName);
        makeBook(device);
        for (int i = 0; i < 40; ++i)
            device.make("Book", QStringLiteral("book %1").arg(i))->setToOne(shelf::OnShelf, shelf.get());
        device.save();
        device.sendAll();
    }
    const QByteArray original = shelf::bytesOf(path);
    bool met = true;
    int n = 0;
    while (met) {
        SCOPED_TRACE(++n);
        shelf::putFile(path, original);
        FaultVfs vfs;
        Device device(path, deviceName);
        for (const auto& each : device.all("Book"))
            each->setValue(shelf::Title, QStringLiteral("changed"));
        device.context.deleteObject(*device.all("Shelf")[0]);
        vfs.failAt(n, SQLITE_IOERR, FaultVfs::Failing::Once);
        const bool saved = device.context.save().has_value();
        met = vfs.met();
        vfs.repair();
        ASSERT_TRUE(saved || met);
        const bool isWritten = shelf::storedDump(path).contains("changed");
        ASSERT_EQ(device.outbox().size(), isWritten ? 42U : 0U);
        if (!saved) device.save();
        ASSERT_EQ(device.outbox().size(), 42U);
        ASSERT_EQ(shelf::storedDump(path), shelf::dump(device.context));
    }
    EXPECT_GT(n, 10) << "the saves did not go through the VFS";
}

} // namespace
