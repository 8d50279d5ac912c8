#include "platform/mirror/LibraryView.h"
#include "platform/mirror/MirrorValue.h"
#include "platform/mirror/tests/MirroredLibrary.h"
#include "platform/store/StoredValue.h"

#include <QtCore/QDateTime>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace platform;
using mirrored::Device;

namespace {

using States = std::map<QUuid, ObjectState>;

// What a user has to see of these states, told straight from the rule.
class Oracle {
public:
    Oracle(const ManagedObjectModel& model, const States& states)
        : m_model(&model)
        , m_states(&states) {}

    // In the form of shelf::dump().
    QByteArray dump() {
        ManagedObjectContext context(std::make_shared<const ManagedObjectModel>(m_model->entities()));
        std::map<QUuid, std::shared_ptr<ManagedObject>> objects;
        for (const auto& id : shownObjects(*m_states, {{QStringLiteral("Note"), QStringLiteral("book")}}))
            objects[id] = make(context, m_states->at(id));
        for (const auto& [id, object] : objects)
            relate(*object, m_states->at(id), objects);
        QByteArray text = shelf::dump(context);
        for (const auto& [id, object] : objects) // identities are for the store to give
            text.replace(object->objectID().toByteArray(), id.toByteArray());
        auto lines = text.split('\n');
        for (auto& line : lines)
            line = sortedMembers(line);
        std::ranges::sort(lines);
        return lines.join('\n');
    }

private:
    // The members of each set in order of their identities.
    static QByteArray sortedMembers(const QByteArray& line) {
        QByteArray out;
        qsizetype at = 0;
        while (at < line.size()) {
            const qsizetype open = line.indexOf('(', at);
            const qsizetype close = line.indexOf(')', open);
            if (open < 0 || close < 0) break;
            auto members = line.mid(open + 1, close - open - 1).split(' ');
            std::ranges::sort(members);
            out += line.mid(at, open - at + 1) + members.join(' ') + ')';
            at = close + 1;
        }
        return out + line.mid(at);
    }

    std::shared_ptr<ManagedObject> make(ManagedObjectContext& context, const ObjectState& state) const {
        auto object = makeDetached(context.model().entity(state.entity));
        context.insert(object);
        const auto& attributes = object->entity().attributes;
        for (std::size_t i = 0; i < attributes.size(); ++i) {
            const auto column = fromMirror(attributes[i], *state.registers.at(attributes[i].name).value);
            object->setValue(static_cast<qsizetype>(i), fromColumn(attributes[i].type, column.value()));
        }
        return object;
    }

    static void relate(ManagedObject& object, const ObjectState& state,
                       const std::map<QUuid, std::shared_ptr<ManagedObject>>& objects) {
        const auto& relationships = object.entity().relationships;
        for (std::size_t i = 0; i < relationships.size(); ++i) {
            const auto at = static_cast<qsizetype>(i);
            const auto relation = state.registers.find(relationships[i].name);
            if (relation != state.registers.end()) {
                const auto target = objects.find(targetOf(*relation->second.value).value());
                if (target != objects.end()) object.setToOne(at, target->second.get());
            }
            const auto set = state.sets.find(relationships[i].name);
            if (set == state.sets.end()) continue;
            for (const auto& [id, element] : set->second)
                if (element.isMember && objects.contains(id)) object.addToMany(at, *objects.at(id));
        }
    }

    const ManagedObjectModel* m_model;
    const States* m_states;
};

class TwoStores : public ::testing::TestWithParam<unsigned> {
protected:
    std::size_t any(std::size_t count) { return random() % count; }

    std::shared_ptr<ManagedObject> anyOf(Device& device, const char* entity) {
        const auto all = device.all(entity);
        return all.empty() ? nullptr : all[any(all.size())];
    }

    void makeSomething(Device& device) {
        static constexpr const char* entities[] = {"Book", "Shelf", "Author", "Note"};
        const auto object = device.make(entities[any(4)], QStringLiteral("made %1").arg(random() % 100));
        if (object->entity().name == QStringLiteral("Note"))
            object->setToOne(shelf::Books, anyOf(device, "Book").get());
    }

    void edit(Device& device) {
        const auto book = anyOf(device, "Book");
        const auto note = anyOf(device, "Note");
        const auto author = anyOf(device, "Author");
        const auto shelf = anyOf(device, "Shelf");
        switch (random() % 10) {
        case 0:
        case 1:
            return makeSomething(device);
        case 2:
            if (book) book->setValue(shelf::Title, QStringLiteral("title %1").arg(random() % 9));
            return;
        case 3:
            if (book) book->setValue(shelf::Cover, QByteArray(static_cast<qsizetype>(any(3)), 'c'));
            return;
        case 4:
            if (book) book->setToOne(shelf::OnShelf, any(4) ? shelf.get() : nullptr);
            return;
        case 5:
            if (note) note->setToOne(shelf::Books, any(4) ? book.get() : nullptr);
            return;
        case 6:
            if (book && author && any(3)) return book->addToMany(shelf::Authors, *author);
            if (book && author) book->removeFromMany(shelf::Authors, *author);
            return;
        case 7:
            if (note) note->setValue(shelf::Name, QString(QChar(char16_t(0xD800 + any(3)))));
            return;
        default: {
            const std::array objects{book, note, author, shelf};
            if (const auto object = objects[any(4)]) device.context.deleteObject(*object);
        }
        }
    }

    // Some of what one device knows reaches the other, in any order and perhaps twice.
    void deliver(Device& from, Device& to, bool all) {
        auto ids = from.everything();
        std::ranges::shuffle(ids, random);
        if (!all) ids.resize(any(ids.size() + 1));
        for (const auto& id : ids) {
            const auto state = from.state(id);
            to.join(id, state);
            if (!all && any(4) == 0) to.put(id, to.object(id).value());
        }
        if (any(2) || all) to.merge();
    }

    std::mt19937 random{GetParam()};
    QTemporaryDir directory;
};

TEST_P(TwoStores, ThatHaveSeenTheSameShowTheSame) {
    SCOPED_TRACE(::testing::Message() << "seed " << GetParam());
    const auto path = [this](const char* name) { return directory.filePath(QString::fromLatin1(name)); };
    Device a(path("A.sqlite"), QUuid::createUuidV5(QUuid(), QStringLiteral("a")));
    Device b(path("B.sqlite"), QUuid::createUuidV5(QUuid(), QStringLiteral("b")));
    for (int round = 0; round < 12; ++round) {
        for (auto* device : {&a, &b}) {
            device->wall += static_cast<WallTime>(any(5)) - 2;
            for (auto edits = any(12); edits > 0; --edits)
                edit(*device);
            if (any(3)) device->save();
        }
        if (any(2)) deliver(a, b, false);
        if (any(2)) deliver(b, a, false);
    }
    a.save();
    b.save();
    deliver(a, b, true);
    deliver(b, a, true);
    States states;
    for (const auto& id : a.everything()) {
        states[id] = a.state(id);
        ASSERT_EQ(b.state(id), states[id]) << id.toString().toStdString();
    }
    ASSERT_EQ(b.everything().size(), states.size());
    const QByteArray wanted = Oracle(a.context.model(), states).dump();
    for (auto* device : {&a, &b}) {
        device->merge();
        EXPECT_EQ(shelf::dump(device->context), wanted);
    }
    EXPECT_EQ(shelf::storedDump(path("A.sqlite")), wanted);
    EXPECT_EQ(shelf::storedDump(path("B.sqlite")), wanted);
}

INSTANTIATE_TEST_SUITE_P(Seeds, TwoStores, ::testing::Range(0U, 100U));

} // namespace
