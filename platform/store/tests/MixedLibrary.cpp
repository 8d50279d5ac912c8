#include "platform/store/tests/MixedLibrary.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <gtest/gtest.h>

#include <algorithm>

namespace shelf {

namespace {

QByteArray valueText(const QVariant& value) {
    if (value.isNull()) return "-";
    const QByteArray bytes = value.typeId() == QMetaType::QDateTime
                                 ? QByteArray::number(value.toDateTime().toMSecsSinceEpoch())
                                 : value.toByteArray();
    if (bytes.size() < 40) return '\'' + bytes + '\'';
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex() + '/' +
           QByteArray::number(bytes.size());
}

QByteArray membersText(const platform::ObjectSet& members) {
    QByteArrayList ids;
    for (const auto* member : members)
        ids += member->objectID().toByteArray();
    std::ranges::sort(ids);
    return '(' + ids.join(' ') + ')';
}

QByteArray objectText(const platform::ManagedObject& object) {
    QByteArray text = object.objectID().toByteArray();
    const auto& entity = object.entity();
    for (qsizetype i = 0; i < static_cast<qsizetype>(entity.attributes.size()); ++i)
        text += ' ' + valueText(object.value(i));
    for (qsizetype i = 0; i < static_cast<qsizetype>(entity.relationships.size()); ++i) {
        if (entity.relationships[static_cast<std::size_t>(i)].cardinality == Cardinality::ToMany)
            text += ' ' + membersText(object.toMany(i));
        else if (const auto* target = object.toOne(i))
            text += ' ' + target->objectID().toByteArray();
        else
            text += " -";
    }
    return text;
}

QString longText(int length, char16_t first) {
    QString text(length, first);
    for (qsizetype i = 0; i < length; i += 7)
        text[i] = QChar(char16_t(u'a' + i % 23));
    return text;
}

} // namespace

QByteArray dump(platform::ManagedObjectContext& context) {
    QByteArrayList lines;
    for (const auto& entity : context.model().entities())
        for (const auto& object : context.fetch({entity.name, {}, {}, {}}))
            lines += entity.name.toUtf8() + ' ' + objectText(*object);
    std::ranges::sort(lines);
    return lines.join('\n');
}

QByteArray storedDump(const QString& path) {
    Library library(path);
    return library.error ? "cannot be opened: " + library.error->message.toUtf8() : dump(library.context);
}

void fill(Library& library, int books) {
    std::vector<std::shared_ptr<platform::ManagedObject>> shelves;
    std::vector<std::shared_ptr<platform::ManagedObject>> authors;
    for (int i = 0; i < 4; ++i) {
        shelves.push_back(library.make("Shelf", QStringLiteral("shelf %1").arg(i)));
        authors.push_back(library.make("Author", QStringLiteral("author %1").arg(i)));
    }
    for (int i = 0; i < books; ++i) {
        const auto book = library.make("Book", QStringLiteral("book %1").arg(i));
        book->setValue(Pages, i);
        book->setValue(Read, i % 2 == 0);
        book->setValue(Bought, QDateTime::fromMSecsSinceEpoch(1700000000000 + i, Qt::UTC));
        if (i % 3 == 0) book->setValue(Cover, longText(9'000, u'c').toUtf8());
        book->setToOne(OnShelf, shelves[static_cast<std::size_t>(i) % 4].get());
        book->addToMany(Authors, *authors[static_cast<std::size_t>(i) % 4]);
        book->addToMany(Authors, *authors[static_cast<std::size_t>(i + 1) % 4]);
        for (int note = 0; note < i % 3; ++note)
            library.make("Note", QStringLiteral("note %1").arg(note))->setToOne(Books, book.get());
    }
}

void edit(Library& library) {
    const auto books = library.all("Book");
    const auto shelves = library.all("Shelf");
    const auto authors = library.all("Author");
    books[1]->setValue(Title, longText(20'000, u't'));
    books[3]->setValue(Cover, QVariant());
    books[4]->setToOne(OnShelf, shelves[3].get());
    books[5]->setToOne(OnShelf, nullptr);
    books[6]->removeFromMany(Authors, *authors[2]);
    books[6]->addToMany(Authors, *authors[1]);
    library.context.deleteObject(*books[0]);
    library.context.deleteObject(*books[8]); // its notes go with it
    library.context.deleteObject(*authors[0]);
    const auto shelf = library.make("Shelf", QStringLiteral("new shelf"));
    for (int i = 0; i < 3; ++i) {
        const auto book = library.make("Book", QStringLiteral("new book %1").arg(i));
        book->setValue(Cover, longText(12'000, u'n').toUtf8());
        book->setToOne(OnShelf, shelf.get());
        book->addToMany(Authors, *authors[3]);
        library.make("Note", QStringLiteral("new note"))->setToOne(Books, book.get());
    }
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void makeFirstVersion(const QString& path) {
    auto connection = platform::SqliteConnection::open(path, platform::SqliteConnection::Access::ReadWrite);
    for (const char* statement : {"DROP TABLE \"_Mirror\"", "DROP TABLE \"_MirrorLinks\"",
                                  "DROP TABLE \"_MirrorState\"", "PRAGMA user_version = 1", "VACUUM"})
        ASSERT_TRUE((*connection)->run(QString::fromLatin1(statement))) << statement;
}

void putFile(const QString& path, const QByteArray& bytes) {
    QFile::remove(path + QStringLiteral("-journal"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

} // namespace shelf
