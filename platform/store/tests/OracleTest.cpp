#include "platform/store/tests/Identical.h"
#include "platform/store/tests/ShelfModel.h"
#include "platform/store/tests/ShelfOracle.h"

#include <QtCore/QDateTime>
#include <QtCore/QRandomGenerator>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>

using namespace platform;
using shelf::Kind;
using shelf::Library;
using shelf::ShelfOracle;

namespace {

constexpr quint32 seed = 20'240'229;
constexpr int operations = 1'000'000;
constexpr int reopenEvery = 50'000;
constexpr int burstEvery = 100'000;
constexpr int burst = 2'000; // books on one shelf and of one author
constexpr std::size_t population = 400;

// Does the same random edits to a stored library and to the oracle.
class RandomWalk {
public:
    explicit RandomWalk(const QString& path)
        : m_path(path)
        , m_library(std::make_unique<Library>(path)) {}

    void step();
    // Fills one shelf, and the list of one author's books, and empties them again.
    void stepThroughABurst();
    void saveAndReopen();
    // Compares everything.
    void compare();

    int operationsDone() const { return m_done; }

private:
    struct Live {
        std::shared_ptr<ManagedObject> object;
        Kind kind;
        std::size_t place; // in m_numbers of its kind
    };

    std::vector<int>& numbers(Kind kind) { return m_numbers[static_cast<std::size_t>(kind)]; }

    int number(std::size_t limit) { return static_cast<int>(m_random.bounded(static_cast<quint32>(limit))); }

    int pick(Kind kind) {
        auto& all = numbers(kind);
        return all.empty() ? create(kind) : all[static_cast<std::size_t>(number(all.size()))];
    }

    Kind pickKind() { return shelf::everyKind[m_random.bounded(4)]; }

    ManagedObject& object(int number) { return *m_live.at(number).object; }

    QVariant randomValue(Kind kind, qsizetype attribute);
    int create(Kind kind);
    void remove(int number);
    void enter(Kind kind, int number, std::shared_ptr<ManagedObject> object);
    void setValue();
    void relate();
    // Makes the pair or takes it apart, from the end of `number`.
    void makeRelated(int number, qsizetype relationship, int other);
    void makeUnrelated(int number, qsizetype relationship, int other);
    void checkPair(int number, qsizetype relationship, int other);
    void checkSize(int number, qsizetype relationship);
    void checkRelations(int number);

    QString m_path;
    std::unique_ptr<Library> m_library;
    QRandomGenerator m_random{seed};
    ShelfOracle m_oracle;
    std::unordered_map<int, Live> m_live;
    std::unordered_map<int, QUuid> m_ids;
    std::vector<int> m_numbers[4];
    int m_nextNumber = 0;
    int m_done = 0;
};

struct Relationship {
    Kind kind;
    qsizetype index;
    Kind destination;
    qsizetype inverse;
};

constexpr Relationship relationships[] = {
    {Kind::Book, shelf::OnShelf, Kind::Shelf, shelf::Books},
    {Kind::Shelf, shelf::Books, Kind::Book, shelf::OnShelf},
    {Kind::Book, shelf::Authors, Kind::Author, shelf::Books},
    {Kind::Author, shelf::Books, Kind::Book, shelf::Authors},
    {Kind::Book, shelf::Notes, Kind::Note, shelf::Books},
    {Kind::Note, shelf::Books, Kind::Book, shelf::Notes},
};

const Relationship& relationshipOf(Kind kind, qsizetype index) {
    return *std::ranges::find_if(relationships,
                                 [&](const auto& each) { return each.kind == kind && each.index == index; });
}

// For messages; strings as the hexadecimal numbers of their units.
std::string textOf(const QVariant& value) {
    if (value.typeId() != QMetaType::QString) return value.toString().toStdString();
    QStringList units;
    for (const QChar unit : value.toString())
        units += QString::number(unit.unicode(), 16);
    return units.join(u' ').toStdString();
}

qsizetype attributeCount(Kind kind) {
    return kind == Kind::Book ? 5 : 1;
}

// The members, also of a to-one relationship. The set lives until the next call.
const ObjectSet& relatedTo(const ManagedObject& object, qsizetype relationship) {
    const auto& description = object.entity().relationships[static_cast<std::size_t>(relationship)];
    if (description.cardinality == Cardinality::ToMany) return object.toMany(relationship);
    static ObjectSet one;
    one = {};
    if (auto* target = object.toOne(relationship)) one.insert(target);
    return one;
}

QVariant RandomWalk::randomValue(Kind kind, qsizetype attribute) {
    const bool isTitle = kind == Kind::Book && attribute == shelf::Title;
    if (!isTitle && number(6) == 0) return {};
    if (kind != Kind::Book || isTitle) {
        QString text(number(12), u' ');
        for (auto& unit : text)
            unit = QChar(static_cast<char16_t>(m_random.bounded(0x10000)));
        return text.isEmpty() ? QStringLiteral("") : text;
    }
    switch (attribute) {
    case shelf::Pages:
        return number(0x10000) - 0x8000;
    case shelf::Bought:
        return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(m_random.generate64() >> 20), Qt::UTC);
    case shelf::Cover:
        return QByteArray(number(40) == 0 ? 10'000 : number(50), static_cast<char>(number(256)));
    default:
        return number(2) == 0;
    }
}

int RandomWalk::create(Kind kind) {
    const int created = m_nextNumber++;
    auto& expected = m_oracle.objects[created];
    expected = {kind, std::vector<QVariant>(static_cast<std::size_t>(attributeCount(kind)))};
    expected.values[0] = randomValue(kind, 0);
    enter(kind, created, m_library->make(nameOf(kind), expected.values[0]));
    m_ids[created] = object(created).objectID();
    return created;
}

void RandomWalk::enter(Kind kind, int number, std::shared_ptr<ManagedObject> object) {
    m_live[number] = {std::move(object), kind, numbers(kind).size()};
    numbers(kind).push_back(number);
}

void RandomWalk::remove(int number) {
    const auto removed = m_oracle.remove(number);
    m_library->context.deleteObject(object(number));
    for (const int each : removed) {
        const auto [object, kind, place] = m_live.at(each);
        ASSERT_EQ(object->context(), nullptr);
        for (const auto& relationship : relationships)
            ASSERT_TRUE(relationship.kind != kind || relatedTo(*object, relationship.index).isEmpty());
        auto& all = numbers(kind);
        m_live.at(all.back()).place = place;
        all[place] = all.back();
        all.pop_back();
        m_live.erase(each);
        m_ids.erase(each);
    }
}

void RandomWalk::setValue() {
    const Kind kind = number(3) == 0 ? pickKind() : Kind::Book;
    const int target = pick(kind);
    const qsizetype attribute = number(static_cast<std::size_t>(attributeCount(kind)));
    auto& expected = m_oracle.objects.at(target).values[static_cast<std::size_t>(attribute)];
    if (number(10) > 0) expected = randomValue(kind, attribute);
    object(target).setValue(attribute, expected);
    ASSERT_TRUE(identical(object(target).value(attribute), expected));
}

void RandomWalk::relate() {
    const auto& relationship = relationships[m_random.bounded(6)];
    const int one = pick(relationship.kind);
    const auto& members = m_oracle.related(one, relationship.index);
    // Mostly take apart what is together, so that neither grows without end; at times repeat what is so.
    const bool takeApart = !members.empty() && number(2) == 0;
    const int other = takeApart ? *members.begin() : pick(relationship.destination);
    const bool isTogether = m_oracle.related(one, relationship.index).contains(other);
    if (isTogether != (number(20) == 0))
        makeUnrelated(one, relationship.index, other);
    else
        makeRelated(one, relationship.index, other);
}

void RandomWalk::makeRelated(int number, qsizetype relationship, int other) {
    const auto& [kind, index, destination, inverse] =
        relationshipOf(m_oracle.objects.at(number).kind, relationship);
    m_oracle.link(number, relationship, other);
    if (m_oracle.end(kind, relationship).isToOne)
        object(number).setToOne(relationship, &object(other));
    else
        object(number).addToMany(relationship, object(other));
    checkPair(number, relationship, other);
}

void RandomWalk::makeUnrelated(int number, qsizetype relationship, int other) {
    const Kind kind = m_oracle.objects.at(number).kind;
    if (!m_oracle.end(kind, relationship).isToOne) {
        m_oracle.unlink(number, relationship, other);
        object(number).removeFromMany(relationship, object(other));
    } else {
        for (const int each : std::set(m_oracle.related(number, relationship)))
            m_oracle.unlink(number, relationship, each);
        object(number).setToOne(relationship, nullptr);
    }
    checkPair(number, relationship, other);
}

void RandomWalk::checkPair(int number, qsizetype relationship, int other) {
    const auto& [kind, index, destination, inverse] =
        relationshipOf(m_oracle.objects.at(number).kind, relationship);
    const bool together = m_oracle.related(number, relationship).contains(other);
    ASSERT_EQ(relatedTo(object(number), relationship).contains(&object(other)), together);
    ASSERT_EQ(relatedTo(object(other), inverse).contains(&object(number)), together);
    checkSize(number, relationship);
    checkSize(other, inverse);
}

void RandomWalk::checkSize(int number, qsizetype relationship) {
    ASSERT_EQ(relatedTo(object(number), relationship).size(), m_oracle.related(number, relationship).size());
}

void RandomWalk::step() {
    ++m_done;
    const int action = number(100);
    if (action < 50)
        setValue();
    else if (action < 90)
        relate();
    else if (m_live.size() < population ? action < 97 : action < 93)
        create(number(2) == 0 ? Kind::Book : pickKind());
    else
        remove(pick(pickKind()));
    if (number(10'000) > 0) return;
    ASSERT_TRUE(m_library->context.save());
}

void RandomWalk::stepThroughABurst() {
    const int shelf = create(Kind::Shelf);
    const int author = create(Kind::Author);
    std::vector<int> books;
    for (int i = 0; i < burst; ++i) {
        books.push_back(create(Kind::Book));
        makeRelated(shelf, shelf::Books, books.back());
        makeRelated(books.back(), shelf::Authors, author);
        m_done += 3;
    }
    saveAndReopen();
    std::shuffle(books.begin(), books.end(), m_random);
    for (const int book : books) {
        makeUnrelated(author, shelf::Books, book);
        if (number(2) == 0) makeUnrelated(book, shelf::OnShelf, shelf);
        remove(book);
        m_done += 2;
    }
}

void RandomWalk::saveAndReopen() {
    const auto saved = m_library->context.save();
    ASSERT_TRUE(saved) << saved.error().message.toStdString();
    m_live.clear();
    m_library.reset();
    m_library = std::make_unique<Library>(m_path);
    ASSERT_FALSE(m_library->error);
    std::map<QUuid, int> numberOf;
    for (const auto& [number, id] : m_ids)
        numberOf[id] = number;
    for (const Kind kind : shelf::everyKind) {
        numbers(kind).clear();
        for (auto& stored : m_library->all(nameOf(kind))) {
            const auto found = numberOf.find(stored->objectID());
            ASSERT_NE(found, numberOf.end()) << "an object that was deleted, or never made";
            ASSERT_EQ(m_oracle.objects.at(found->second).kind, kind);
            enter(kind, found->second, stored);
        }
    }
    ASSERT_EQ(m_live.size(), m_oracle.objects.size());
    compare();
}

void RandomWalk::compare() {
    for (const auto& [number, expected] : m_oracle.objects) {
        for (std::size_t i = 0; i < expected.values.size(); ++i)
            ASSERT_TRUE(identical(object(number).value(static_cast<qsizetype>(i)), expected.values[i]))
                << nameOf(expected.kind) << ' ' << number << ", attribute " << i << ": "
                << textOf(expected.values[i]) << ", not "
                << textOf(object(number).value(static_cast<qsizetype>(i)));
        checkRelations(number);
    }
}

void RandomWalk::checkRelations(int number) {
    for (const auto& [kind, index, destination, inverse] : relationships) {
        if (kind != m_oracle.objects.at(number).kind) continue;
        std::set<const ManagedObject*> expected;
        for (const int each : m_oracle.related(number, index))
            expected.insert(&object(each));
        const auto& related = relatedTo(object(number), index);
        const std::set<const ManagedObject*> actual(related.begin(), related.end());
        ASSERT_EQ(actual, expected) << nameOf(kind) << ' ' << number << ", relationship " << index;
    }
}

TEST(Oracle, AMillionRandomOperationsLeaveWhatPlainMapsHold) {
    const QTemporaryDir directory;
    RandomWalk walk(directory.filePath(QStringLiteral("Shelf.sqlite")));
    int bursts = 0;
    int reopenings = 0;
    while (walk.operationsDone() < operations && !::testing::Test::HasFatalFailure()) {
        walk.step();
        if (walk.operationsDone() / burstEvery > bursts) {
            ++bursts;
            walk.stepThroughABurst();
        }
        if (walk.operationsDone() / reopenEvery > reopenings) {
            ++reopenings;
            walk.compare();
            walk.saveAndReopen();
        }
    }
    walk.compare();
    EXPECT_FALSE(HasFailure()) << "seed " << seed << ", operation " << walk.operationsDone();
}

} // namespace
