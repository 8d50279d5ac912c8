#include "platform/mirror/Mirror.h"
#include "platform/mirror/RecordCodec.h"
#include "platform/mirror/TextValue.h"
#include "platform/mirror/tests/Random.h"
#include "platform/mirror/tests/ServedDirectly.h"
#include "platform/mirror/tests/SimulatedStorage.h"

#include <QtCore/QCborMap>
#include <gtest/gtest.h>

namespace platform {

namespace {

using simulation::Random;
using simulation::ServedDirectly;
using simulation::Server;
using simulation::Storage;

const QString title = QStringLiteral("title");
const QString code = QStringLiteral("code");

class UnreadableRecordTest : public testing::Test {
protected:
    UnreadableRecordTest() {
        policy.conflictCopy = [](const auto&) { return std::nullopt; };
    }

    Mirror mirror() {
        return Mirror(
            cloud, storage, policy, QStringLiteral("zone"), [] { return 1'700'000'000'000; },
            [this] { return random.id(); });
    }

    ObjectState noteOf(const QString& text, std::uint64_t time = 5) const {
        ObjectState state;
        state.entity = QStringLiteral("Note");
        state.writeText(code, {time, other}, textValue(text));
        return state;
    }

    // Another device writes the payload.
    void serve(const QUuid& id, const EncodedState& encoded) {
        const QString name = id.toString(QUuid::WithoutBraces);
        ZonePush push;
        push.epoch = server.epoch;
        push.newEpoch = random.id();
        push.expectedRevision = server.revision;
        push.expectedTag = server.tags[server.revision];
        push.device = other;
        push.lastTag = push.expectedTag;
        push.tag = random.id();
        push.records = {{name, QStringLiteral("Note"), 0, false, encoded.payload, {}}};
        for (const CloudAsset& asset : encoded.assets)
            push.records[0].assets.push_back(asset.hash);
        push.assets = encoded.assets;
        ASSERT_EQ(server.push(push, {{name, {}}}, 0).outcome, PushOutcome::Committed);
    }

    QByteArray ofNewerFormat(const ObjectState& state) {
        QCborMap map = QCborValue::fromCbor(encodeState(state).payload).toMap();
        map[qint64{0}] = 2;
        return QCborValue(map).toCbor();
    }

    const MirroredObject& object(const QUuid& id) { return storage.rows.at(id).object; }

    Random random{3};
    Server server;
    ServedDirectly cloud{server};
    Storage storage;
    MirrorPolicy policy;
    const QUuid other = random.id();
    const QUuid first = random.id();
    const QUuid second = random.id();
};

TEST_F(UnreadableRecordTest, StopsOnlyItself) {
    serve(first, {ofNewerFormat(noteOf(QStringLiteral("new"))), {}});
    serve(second, encodeState(noteOf(QStringLiteral("old"))));
    ASSERT_TRUE(mirror().sync());
    EXPECT_FALSE(object(first).parked.isEmpty());
    EXPECT_EQ(object(second).state, noteOf(QStringLiteral("old")));

    storage.rows[first].object.state = noteOf(QStringLiteral("local"), 3);
    storage.rows[first].object.change = ++storage.changes;
    ASSERT_TRUE(mirror().sync());
    EXPECT_EQ(server.revision, 2) << "it is not pushed";
    EXPECT_EQ(object(first).parked, ofNewerFormat(noteOf(QStringLiteral("new"))));

    serve(first, encodeState(noteOf(QStringLiteral("readable"))));
    ASSERT_TRUE(mirror().sync());
    EXPECT_TRUE(object(first).parked.isEmpty());
    EXPECT_EQ(*object(first).state.registers.at(code).value, textValue(QStringLiteral("readable")));
}

TEST_F(UnreadableRecordTest, IsTriedAgainByTheNextProgram) {
    serve(first, encodeState(noteOf(QStringLiteral("text"))));
    ASSERT_TRUE(mirror().sync());
    auto& parked = storage.rows[first].object;
    parked.parked = encodeState(noteOf(QStringLiteral("later"), 6)).payload;
    ASSERT_TRUE(mirror().sync());
    EXPECT_TRUE(object(first).parked.isEmpty());
    EXPECT_EQ(object(first).state, noteOf(QStringLiteral("later"), 6));
}

TEST_F(UnreadableRecordTest, AnAssetThatIsGoneParksItsRecordUntilTheNextOne) {
    serve(first, encodeState(noteOf(QString(70'000, u'x'))));
    server.assets.clear();
    ASSERT_TRUE(mirror().sync());
    EXPECT_FALSE(object(first).parked.isEmpty());
    serve(first, encodeState(noteOf(QString(70'000, u'y'), 6)));
    ASSERT_TRUE(mirror().sync());
    EXPECT_TRUE(object(first).parked.isEmpty());
    EXPECT_EQ(object(first).state, noteOf(QString(70'000, u'y'), 6));
}

TEST_F(UnreadableRecordTest, ARecordThatIsGoneWithItsAssetHoldsNothingBack) {
    serve(second, encodeState(noteOf(QStringLiteral("old"))));
    const Server backup = server;
    serve(first, encodeState(noteOf(QString(70'000, u'x'))));
    storage.rows[first].object.state = noteOf(QStringLiteral("local"), 3);
    storage.rows[first].object.change = ++storage.changes;
    server.assets.clear();
    ASSERT_TRUE(mirror().sync());
    EXPECT_FALSE(object(first).parked.isEmpty());
    server = backup;
    ASSERT_TRUE(mirror().sync());
    EXPECT_EQ(decodeState(server.rows.at(first.toString(QUuid::WithoutBraces)).record.payload),
              noteOf(QStringLiteral("local"), 3));
}

TEST_F(UnreadableRecordTest, AnAbsurdTimeIsNoTime) {
    serve(first, encodeState(noteOf(QStringLiteral("far"), HybridClock::latestTime + 1)));
    ASSERT_TRUE(mirror().sync());
    EXPECT_FALSE(object(first).parked.isEmpty());
    EXPECT_LT(storage.status.clock, HybridClock::fromWall(1'800'000'000'000));
}

} // namespace

} // namespace platform
