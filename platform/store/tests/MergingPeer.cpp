#include "platform/store/tests/MergingPeer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ranges>

namespace shelf {

namespace {

constexpr const char* everyEntity[] = {"Book", "Shelf", "Author", "Note"};

qsizetype columnOf(const platform::ManagedObject& object, qsizetype relationship) {
    return static_cast<qsizetype>(object.entity().attributes.size()) + relationship;
}

platform::FetchRequest byTitle() {
    return {QStringLiteral("Book"), {{Title, Qt::AscendingOrder}}, {}, {}};
}

QUuid idOf(const platform::ManagedObject* object) {
    return object ? object->objectID() : QUuid();
}

// A book that others have deleted before it was read whole cannot be written anew: their deletion wins.
bool isWhole(const platform::ManagedObject& object) {
    return object.entity().name != QStringLiteral("Book") || object.readValue(Cover);
}

std::unique_ptr<platform::SqliteConnection> connectTo(const QString& path) {
    return platform::SqliteConnection::open(path, platform::SqliteConnection::Access::ReadWrite).value();
}

} // namespace

MergingPeer::MergingPeer(QString path, QString name, QRandomGenerator& random, FaultVfs& vfs)
    : m_path(std::move(path))
    , m_name(std::move(name))
    , m_random(&random)
    , m_vfs(&vfs) {
    reopen();
}

void MergingPeer::reopen() {
    m_books.reset();
    m_columns.clear();
    m_authorships.clear();
    m_deleted.clear();
    m_broughtBack.clear();
    m_wasTried = false;
    m_library = std::make_unique<Library>(m_path);
    ASSERT_FALSE(m_library->error) << m_library->error->message.toStdString();
    m_books = std::make_unique<platform::FetchedResultsController>(byTitle(), m_library->context);
    m_books->performFetch();
    m_books->setDidChangeContent([this] { ++m_bookEvents; });
    m_publishedLines = bookLines();
}

MergingPeer::Object MergingPeer::pick(const char* entity) {
    auto all = m_library->all(entity);
    std::ranges::sort(all, {}, [](const auto& object) { return labelOf(*object); });
    return all.empty() ? nullptr : all[m_random->bounded(static_cast<quint32>(all.size()))];
}

MergingPeer::Object MergingPeer::find(const QUuid& id) const {
    for (const auto* entity : everyEntity)
        for (const auto& object : m_library->all(entity))
            if (object->objectID() == id) return object;
    return nullptr;
}

void MergingPeer::edit() {
    switch (m_random->bounded(10)) {
    case 0:
        make(everyEntity[m_random->bounded(4)]);
        return;
    case 1:
    case 2:
        return setSomeValue();
    case 3:
        if (const auto book = pick("Book"))
            moveChild(book, OnShelf, m_random->bounded(3) ? pick("Shelf") : nullptr, Books);
        return;
    case 4:
        if (const auto note = pick("Note"))
            moveChild(note, Books, m_random->bounded(3) ? pick("Book") : nullptr, Notes);
        return;
    case 5:
    case 6:
    case 7:
        return flipAuthorship();
    case 8:
        return deleteSomething();
    case 9:
        return bringBackSomething();
    }
}

MergingPeer::Object MergingPeer::make(const char* entity) {
    const auto made = m_library->make(entity, QStringLiteral("%1%2|").arg(m_name).arg(++m_counter));
    if (made->entity().name == QStringLiteral("Book")) made->setValue(Cover, coverOf(*made));
    return made;
}

QString MergingPeer::labelOf(const platform::ManagedObject& object) {
    return object.value(Name).toString().section(u'|', 0, 0);
}

void MergingPeer::fill() {
    const auto book = make("Book");
    book->setToOne(OnShelf, make("Shelf").get());
    book->addToMany(Authors, *make("Author"));
    book->addToMany(Notes, *make("Note"));
}

void MergingPeer::setSomeValue() {
    const auto object = pick(everyEntity[m_random->bounded(4)]);
    if (!object) return;
    const QString text = labelOf(*object) + u'|' + QString::number(m_random->bounded(1000));
    const bool isBook = object->entity().name == QStringLiteral("Book");
    switch (isBook ? m_random->bounded(3) : 0) {
    case 0:
        return setValue(*object, Title, text);
    case 1:
        return setValue(*object, Pages, static_cast<int>(m_random->bounded(4)));
    case 2:
        return setValue(*object, Cover, coverOf(*object) + text.toUtf8());
    }
}

void MergingPeer::setValue(platform::ManagedObject& object, qsizetype attribute, const QVariant& value) {
    if (object.value(attribute) == value) return;
    object.setValue(attribute, value);
    noteColumn(object, attribute, value, nullptr);
}

void MergingPeer::noteColumn(const platform::ManagedObject& object, qsizetype column, const QVariant& value,
                             const platform::ManagedObject* target) {
    if (isWhole(object) && (!target || isWhole(*target)))
        m_columns.insert_or_assign({object.objectID(), column}, value);
    else
        m_columns.erase({object.objectID(), column});
}

void MergingPeer::moveChild(const Object& child, qsizetype toParent, const Object& parent,
                            qsizetype toChildren) {
    auto* current = child->toOne(toParent);
    if (current == parent.get()) return;
    if (m_random->bounded(2) == 0)
        child->setToOne(toParent, parent.get());
    else if (parent)
        parent->addToMany(toChildren, *child);
    else
        current->removeFromMany(toChildren, *child);
    noteColumn(*child, columnOf(*child, toParent), idOf(parent.get()), parent.get());
}

void MergingPeer::flipAuthorship() {
    const auto author = pick("Author");
    const auto book = pick("Book");
    if (!author || !book) return;
    const bool isAuthor = author->toMany(Books).contains(book.get());
    const bool fromBook = m_random->bounded(2) == 0;
    auto& one = fromBook ? *book : *author;
    auto& other = fromBook ? *author : *book;
    const auto relationship = fromBook ? qsizetype{Authors} : qsizetype{Books};
    isAuthor ? one.removeFromMany(relationship, other) : one.addToMany(relationship, other);
    const std::pair key(author->objectID(), book->objectID());
    // A second change brings it back to what is stored, unless nobody knows what that is.
    const bool isFlippedBack = m_authorships.erase(key) > 0 && !m_wasTried;
    const bool isBroughtBack = m_broughtBack.contains(key.first) || m_broughtBack.contains(key.second);
    if (!isFlippedBack && !isBroughtBack && (isAuthor || isWhole(*book))) m_authorships[key] = !isAuthor;
}

void MergingPeer::deleteSomething() {
    const auto object = pick(everyEntity[m_random->bounded(4)]);
    if (!object) return;
    const auto notes = m_library->all("Note");
    m_library->context.deleteObject(*object);
    m_deleted.push_back(object);
    for (const auto& note : notes)
        if (!note->context() && note != object) m_deleted.push_back(note);
    forgetTheDead();
}

void MergingPeer::bringBackSomething() {
    if (m_deleted.empty()) return;
    const auto place = m_deleted.begin() + m_random->bounded(static_cast<int>(m_deleted.size()));
    const Object object = *place;
    m_deleted.erase(place);
    m_library->context.insert(object);
    m_broughtBack.insert(object->objectID());
    if (object->entity().name != QStringLiteral("Book")) return;
    // Where others deleted it too there is no cover left to read.
    if (!object->readValue(Cover)) object->setValue(Cover, coverOf(*object));
}

void MergingPeer::forgetTheDead() {
    std::erase_if(m_columns, [this](const auto& entry) {
        const auto& [column, value] = entry;
        const QUuid target = value.typeId() == QMetaType::QUuid ? value.toUuid() : QUuid();
        return !find(column.first) || (!target.isNull() && !find(target));
    });
    std::erase_if(m_authorships, [this](const auto& entry) {
        return !find(entry.first.first) || !find(entry.first.second);
    });
}

void MergingPeer::forgetWhatIsStored() {
    std::set<std::pair<QUuid, QUuid>> stored;
    const auto read = connectTo(m_path)->query(
        QStringLiteral("SELECT source, target FROM \"_Author_books\""), {}, [&](const QSqlQuery& row) {
            stored.emplace(QUuid::fromRfc4122(row.value(0).toByteArray()),
                           QUuid::fromRfc4122(row.value(1).toByteArray()));
        });
    ASSERT_TRUE(read) << read.error().message.toStdString();
    std::erase_if(m_authorships,
                  [&](const auto& entry) { return stored.contains(entry.first) == entry.second; });
}

void MergingPeer::save() {
    watch([this] {
        const auto saved = m_library->context.save();
        EXPECT_TRUE(saved) << saved.error().message.toStdString();
        return saved ? Outcome::Written : Outcome::Failed;
    });
}

void MergingPeer::saveInVain() {
    if (!hasChanges()) return;
    watch([this] {
        const auto other = connectTo(m_path);
        switch (m_random->bounded(3)) {
        case 0:
            EXPECT_TRUE(other->run(QStringLiteral("BEGIN IMMEDIATE")));
            break;
        case 1: // lets the save merge and write, and stops it at its commit
            EXPECT_TRUE(other->run(QStringLiteral("BEGIN")));
            EXPECT_TRUE(other->scalar(QStringLiteral("SELECT count(*) FROM \"Book\"")));
            break;
        case 2:
            m_vfs->failAt(1, SQLITE_IOERR_DIR_FSYNC, FaultVfs::Failing::Once, FaultVfs::Operation::Delete);
        }
        const auto saved = m_library->context.save();
        m_vfs->repair();
        m_wasTried = true;
        return saved ? Outcome::Written : Outcome::Failed;
    });
}

void MergingPeer::merge() {
    watch([this] {
        const auto merged = m_library->context.mergeChanges();
        EXPECT_TRUE(merged) << merged.error().message.toStdString();
        return Outcome::Merged;
    });
}

void MergingPeer::watch(const std::function<Outcome()>& action) {
    const QByteArray before = bookLines();
    m_bookEvents = 0;
    const auto objectsBefore = m_books->fetchedObjects();
    const Outcome outcome = action();
    const QByteArray after = bookLines();
    checkPending();
    const bool mustTell = before != after || (outcome == Outcome::Written && m_publishedLines != after);
    EXPECT_GE(m_bookEvents, mustTell ? 1 : 0) << "the books changed without an event";
    EXPECT_LE(m_bookEvents, 1);
    if (m_bookEvents > 0) m_publishedLines = after;
    const bool isCurrent = m_bookEvents > 0 || outcome == Outcome::Written;
    EXPECT_EQ(m_books->fetchedObjects(), isCurrent ? m_library->context.fetch(byTitle()) : objectsBefore);
    if (outcome != Outcome::Written) return forgetWhatIsStored();
    m_columns.clear();
    m_authorships.clear();
    m_deleted.clear();
    m_broughtBack.clear();
    m_wasTried = false;
    EXPECT_FALSE(hasChanges());
}

void MergingPeer::checkPending() const {
    for (const auto& [column, value] : m_columns) {
        const auto object = find(column.first);
        ASSERT_TRUE(object) << "an object with a pending change is gone";
        const auto relationship = column.second - columnOf(*object, 0);
        const QVariant current =
            relationship < 0 ? object->value(column.second) : QVariant(idOf(object->toOne(relationship)));
        EXPECT_EQ(current, value) << "a pending change was overwritten";
    }
    for (const auto& [pair, isTogether] : m_authorships) {
        const auto author = find(pair.first);
        const auto book = find(pair.second);
        ASSERT_TRUE(!isTogether || (author && book)) << "an end of a pending membership is gone";
        const bool isStillTogether = author && book && author->toMany(Books).contains(book.get());
        EXPECT_EQ(isStillTogether, isTogether) << "a pending membership was overwritten";
    }
    for (const auto& object : m_deleted)
        EXPECT_FALSE(find(object->objectID())) << "a deleted object came back";
}

QByteArray MergingPeer::bookLines() const {
    QByteArrayList lines;
    for (const auto& book : m_library->all("Book")) {
        QByteArrayList related;
        for (const auto relationship : {Authors, Notes})
            for (const auto* each : book->toMany(relationship))
                related += each->objectID().toByteArray();
        std::ranges::sort(related);
        lines += book->objectID().toByteArray() + ' ' + book->value(Title).toByteArray() + ' ' +
                 book->value(Pages).toByteArray() + ' ' + idOf(book->toOne(OnShelf)).toByteArray() + ' ' +
                 related.join(' ');
    }
    std::ranges::sort(lines);
    return lines.join('\n');
}

void MergingPeer::checkSymmetry() const {
    std::set<const platform::ManagedObject*> present;
    for (const auto* entity : everyEntity)
        for (const auto& object : m_library->all(entity))
            present.insert(object.get());
    const auto check = [&](const char* entity, qsizetype relationship, const auto& holdsBack) {
        for (const auto& object : m_library->all(entity))
            for (const auto* member : object->toMany(relationship)) {
                ASSERT_TRUE(present.contains(member)) << entity << " is related to what is gone";
                ASSERT_TRUE(holdsBack(*member, object.get())) << entity << ' ' << relationship;
            }
    };
    const auto checkChild = [&](const char* entity, qsizetype toParent, qsizetype toChildren) {
        for (const auto& object : m_library->all(entity))
            if (auto* parent = object->toOne(toParent)) {
                ASSERT_TRUE(present.contains(parent)) << entity << " is related to what is gone";
                ASSERT_TRUE(parent->toMany(toChildren).contains(object.get())) << entity;
            }
    };
    check("Shelf", Books, [](const auto& book, auto* shelf) { return book.toOne(OnShelf) == shelf; });
    check("Book", Notes, [](const auto& note, auto* book) { return note.toOne(Books) == book; });
    check("Book", Authors,
          [](const auto& author, auto* book) { return author.toMany(Books).contains(book); });
    check("Author", Books,
          [](const auto& book, auto* author) { return book.toMany(Authors).contains(author); });
    checkChild("Book", OnShelf, Books);
    checkChild("Note", Books, Notes);
}

void MergingPeer::checkCovers() const {
    for (const auto& book : m_library->all("Book"))
        EXPECT_TRUE(book->value(Cover).toByteArray().startsWith(coverOf(*book))) << "a cover is lost";
}

} // namespace shelf
