#include "platform/cloud/tests/CloudFixture.h"

#include <QtTest/QTest>
#include <gmock/gmock.h>

using namespace platform;
using namespace platform::testing;
using ::testing::ElementsAre;

namespace {

const QString zone = QStringLiteral("zone");

QString name(int number) {
    return QStringLiteral("n%1").arg(number, 3, 10, QLatin1Char('0'));
}

std::vector<QString> namesOf(const std::vector<ZoneRecord>& records) {
    std::vector<QString> names;
    for (const auto& one : records)
        names.push_back(one.name);
    return names;
}

// What every store keeps to, whatever keeps it.
class CloudContract : public ::testing::TestWithParam<Cloud::Kind> {
protected:
    // Commits the records as the device, which has read everything.
    void commit(Device& device, const std::vector<ZoneRecord>& records) {
        const auto result = device.push(records);
        ASSERT_TRUE(result) << result.error().message.toStdString();
        ASSERT_EQ(result->outcome, PushOutcome::Committed);
    }

    PushOutcome outcomeOf(const ZonePush& push) {
        const auto result = store->push(push);
        EXPECT_TRUE(result) << result.error().message.toStdString();
        return result ? result->outcome : PushOutcome::Behind;
    }

    Cloud cloud{GetParam()};
    std::unique_ptr<CloudStore> store = openStore(cloud.account());
};

} // namespace

TEST_P(CloudContract, KeepsARecordAsItWasPushed) {
    Device device(*store, QStringLiteral("it's a \"zone\" \\ {,} ?\u00e9\U0001F600"));
    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte.append(static_cast<char>(byte));
    commit(device, {record(QStringLiteral("'\"\\{},? $owner :x NULL \u00e9"), everyByte),
                    record(QStringLiteral("empty"), {}), record(QStringLiteral("null"), "NULL")});
    auto dead = record(QStringLiteral("dead"));
    dead.isTombstone = true;
    dead.type = QStringLiteral("Other's");
    commit(device, {dead});

    Device other(*store, QStringLiteral("it's a \"zone\" \\ {,} ?\u00e9\U0001F600"));
    ASSERT_TRUE(other.pull());
    EXPECT_EQ(other.records(), device.records());
    EXPECT_EQ(other.head.revision, 2);
    EXPECT_EQ(other.head.tag, device.tag);
    EXPECT_EQ(store->revision(), 2);
}

TEST_P(CloudContract, PagesInOrderAndGoesOnFromTheMiddleOfARevision) {
    Device device(*store, zone);
    std::vector<ZoneRecord> records;
    for (int i = 0; i < 25; ++i)
        records.push_back(record(name(24 - i)));
    commit(device, records);
    commit(device, {record(name(3), "again"), record(name(30))});

    auto page = store->changes(zone, device.epoch, {}, {}, 10);
    ASSERT_TRUE(page);
    EXPECT_TRUE(page->isKnownHistory);
    EXPECT_TRUE(page->hasMore);
    ASSERT_EQ(page->records.size(), 10U);
    EXPECT_EQ(page->records[3].name, name(4)); // 3 has moved on
    page = store->changes(zone, device.epoch, {1, name(23)}, {}, 3);
    ASSERT_TRUE(page);
    EXPECT_THAT(namesOf(page->records), ElementsAre(name(24), name(3), name(30)));
    EXPECT_FALSE(page->hasMore);
    EXPECT_EQ(page->records[1].revision, 2);
    EXPECT_EQ(page->records[1].payload, "again");
    page = store->changes(zone, device.epoch, {1, {}}, {}, 10);
    ASSERT_TRUE(page);
    EXPECT_THAT(namesOf(page->records), ElementsAre(name(3), name(30)));
    page = store->changes(QStringLiteral("elsewhere"), device.epoch, {}, {}, 10);
    ASSERT_TRUE(page);
    EXPECT_TRUE(page->records.empty());
    EXPECT_EQ(page->head.revision, 2);
}

TEST_P(CloudContract, KnowsAHistoryByEpochAndTag) {
    const auto isKnown = [this](const QUuid& epoch, const ZonePosition& position, const QUuid& tag) {
        const auto page = store->changes(zone, epoch, position, tag, 10);
        EXPECT_TRUE(page);
        return page && page->isKnownHistory;
    };
    EXPECT_TRUE(isKnown({}, {}, {}));
    EXPECT_FALSE(isKnown(QUuid::createUuid(), {}, {}));
    Device device(*store, zone);
    commit(device, {record(name(1)), record(name(2))});
    const QUuid first = device.tag;
    commit(device, {record(name(3))});
    EXPECT_TRUE(isKnown(device.epoch, {}, {}));
    EXPECT_TRUE(isKnown(device.epoch, {1, {}}, first));
    EXPECT_TRUE(isKnown(device.epoch, {1, name(1)}, first));
    EXPECT_TRUE(isKnown(device.epoch, {2, {}}, device.tag));
    EXPECT_FALSE(isKnown(device.epoch, {2, {}}, first));
    EXPECT_FALSE(isKnown(device.epoch, {1, {}}, {}));
    EXPECT_FALSE(isKnown(device.epoch, {3, {}}, device.tag));
    EXPECT_FALSE(isKnown({}, {}, {}));
    EXPECT_FALSE(isKnown(QUuid::createUuid(), {2, {}}, device.tag));
}

TEST_P(CloudContract, CarriesAPushOutOnTopOfWhatThePusherSawOrNotAtAll) {
    Device first(*store, zone);
    Device second(*store, zone);
    commit(first, {record(name(1), "first")});
    EXPECT_EQ(outcomeOf(second.pushOf({record(name(1), "second")})), PushOutcome::Behind); // begun by another
    ASSERT_TRUE(second.pull());
    commit(first, {record(name(2))});
    EXPECT_EQ(outcomeOf(second.pushOf({record(name(1), "second")})), PushOutcome::Behind);
    auto otherHistory = first.pushOf({record(name(1), "other")});
    otherHistory.epoch = QUuid::createUuid();
    EXPECT_EQ(outcomeOf(otherHistory), PushOutcome::Behind);
    auto fromTheFuture = first.pushOf({record(name(1), "future")});
    fromTheFuture.expectedRevision = 7;
    EXPECT_EQ(outcomeOf(fromTheFuture), PushOutcome::Behind);

    ASSERT_TRUE(second.pull());
    EXPECT_EQ(second.records(), first.records());
    commit(second, {record(name(1), "second")});
    EXPECT_EQ(store->revision(), 3);
}

TEST_P(CloudContract, TellsACopyOfADeviceFromTheDevice) {
    Device device(*store, zone);
    commit(device, {record(name(1))});
    const auto unknown = [&device] { // from its own past: as if it had never pushed
        auto push = device.pushOf({record(name(2), "copy")});
        push.lastTag = QUuid();
        return push;
    };
    EXPECT_EQ(outcomeOf(unknown()), PushOutcome::DeviceTaken);
    EXPECT_EQ(store->revision(), 1);
    auto unconfirmed = unknown(); // it never learnt what became of its last push
    unconfirmed.lastTag = QUuid::createUuid();
    unconfirmed.unconfirmedTag = device.tag;
    const auto committed = device.push(unconfirmed);
    ASSERT_TRUE(committed);
    EXPECT_EQ(committed->outcome, PushOutcome::Committed);
    commit(device, {record(name(3))});
    ASSERT_TRUE(store->forgetDevice(zone, device.pushOf({}).device));
    EXPECT_EQ(outcomeOf(unknown()), PushOutcome::Committed);
}

TEST_P(CloudContract, ListsDevicesAndWhatTheyHaveRead) {
    Device device(*store, zone);
    const QUuid reader = QUuid::createUuid();
    ASSERT_TRUE(store->reportDevice(zone, reader, 5));
    EXPECT_EQ(store->revision(), 0); // that was no change
    commit(device, {record(name(1))});
    ASSERT_TRUE(store->reportDevice(zone, device.pushOf({}).device, 1));
    ASSERT_TRUE(store->reportDevice(zone, reader, 9));
    auto devices = store->devices(zone);
    ASSERT_TRUE(devices);
    ASSERT_EQ(devices->size(), 2U);
    for (const DeviceEntry& entry : *devices) {
        EXPECT_EQ(entry.revision, entry.device == reader ? 9 : 1);
        EXPECT_GE(entry.secondsSilent, 0);
        EXPECT_LT(entry.secondsSilent, 300);
    }
    commit(device, {record(name(2))}); // reporting has not touched its tag
    auto byReader = device.pushOf({});
    byReader.device = reader;
    byReader.lastTag = QUuid();
    EXPECT_EQ(outcomeOf(byReader), PushOutcome::Committed); // a first push of a known reader
    ASSERT_TRUE(store->forgetDevice(zone, reader));
    devices = store->devices(zone);
    ASSERT_TRUE(devices);
    EXPECT_EQ(devices->size(), 1U);
    EXPECT_TRUE(store->devices(QStringLiteral("elsewhere"))->empty());
}

TEST_P(CloudContract, KeepsAnAssetForAsLongAsARecordUsesIt) {
    Device device(*store, zone);
    const QByteArray big(300000, '\xff');
    const auto uses = [](int number, std::vector<QByteArray> assets) {
        auto one = record(name(number));
        one.assets = std::move(assets);
        return one;
    };
    auto push = device.pushOf({uses(1, {"big", "small"}), uses(2, {"big"})});
    push.assets = {{"big", big}, {"small", {}}, {"nobody's", "x"}};
    ASSERT_EQ(device.push(push)->outcome, PushOutcome::Committed);
    EXPECT_EQ(store->asset("big"), big);
    EXPECT_EQ(store->asset("small"), QByteArray());
    EXPECT_EQ(store->asset("nobody's").error().code, CKError::Code::UnknownItem);

    push = device.pushOf({uses(1, {"big"})}); // once more, and with other content under a known hash
    push.assets = {{"big", "other"}};
    ASSERT_EQ(device.push(push)->outcome, PushOutcome::Committed);
    EXPECT_EQ(store->asset("big"), big);
    EXPECT_EQ(store->asset("small").error().code, CKError::Code::UnknownItem);
    const auto dangling = store->push(device.pushOf({uses(3, {"small"})}));
    ASSERT_FALSE(dangling);
    EXPECT_EQ(dangling.error().code, CKError::Code::InvalidArguments);
    EXPECT_EQ(store->revision(), 2);

    auto page = store->changes(zone, device.epoch, {}, {}, 10);
    ASSERT_TRUE(page);
    ASSERT_EQ(page->records.size(), 2U);
    EXPECT_THAT(page->records[0].assets, ElementsAre("big"));
    EXPECT_THAT(page->records[1].assets, ElementsAre("big"));
    commit(device, {uses(1, {}), uses(2, {})});
    EXPECT_EQ(store->asset("big").error().code, CKError::Code::UnknownItem);
}

TEST_P(CloudContract, CollectsTombstonesAloneAndRaisesTheHorizon) {
    Device device(*store, zone);
    auto dead = record(name(1));
    dead.isTombstone = true;
    dead.assets = {"last words"};
    auto push = device.pushOf({dead, record(name(2))});
    push.assets = {{"last words", "x"}};
    ASSERT_EQ(device.push(push)->outcome, PushOutcome::Committed);
    push = device.pushOf({record(name(3))});
    push.collected = {name(1), name(2), QStringLiteral("nobody")};
    push.horizon = 1;
    ASSERT_EQ(device.push(push)->outcome, PushOutcome::Committed);
    push = device.pushOf({});
    push.horizon = 0;
    ASSERT_EQ(device.push(push)->outcome, PushOutcome::Committed);

    const auto page = store->changes(zone, device.epoch, {}, {}, 10);
    ASSERT_TRUE(page);
    EXPECT_THAT(namesOf(page->records), ElementsAre(name(2), name(3)));
    EXPECT_EQ(page->head.horizon, 1);
    EXPECT_EQ(page->head.revision, 3);
    EXPECT_EQ(store->asset("last words").error().code, CKError::Code::UnknownItem);
    EXPECT_EQ(store->changes(QStringLiteral("elsewhere"), device.epoch, {}, {}, 1)->head.horizon, 0);
}

TEST_P(CloudContract, WritesRecordsByHandInZonesThatAreThere) {
    EXPECT_EQ(store->hasZone(zone), false);
    EXPECT_EQ(store->records(zone, QStringLiteral("Thing")).error().code, CKError::Code::ZoneNotFound);
    EXPECT_EQ(store->saveRecord(zone, record(name(1))).error().code, CKError::Code::ZoneNotFound);
    EXPECT_EQ(store->revision(), 0);
    ASSERT_TRUE(store->saveZone(zone));
    ASSERT_TRUE(store->saveZone(zone));
    EXPECT_EQ(store->hasZone(zone), true);
    ASSERT_TRUE(store->saveRecord(zone, record(name(2))));
    ASSERT_TRUE(store->saveRecord(zone, record(name(1))));
    ASSERT_TRUE(store->saveRecord(zone, record(name(2), "new")));
    auto other = record(name(3));
    other.type = QStringLiteral("Other");
    auto dead = record(name(4));
    dead.isTombstone = true;
    ASSERT_TRUE(store->saveRecord(zone, other));
    ASSERT_TRUE(store->saveRecord(zone, dead));
    const auto records = store->records(zone, QStringLiteral("Thing"));
    ASSERT_TRUE(records);
    EXPECT_THAT(namesOf(*records), ElementsAre(name(1), name(2)));
    EXPECT_EQ(records->back().payload, "new");

    Device device(*store, zone); // and a reader follows, revision by revision
    ASSERT_TRUE(device.pull(1));
    EXPECT_EQ(device.records().size(), 4U);
    EXPECT_EQ(device.head.revision, 7);
    ASSERT_TRUE(device.pull());
    EXPECT_TRUE(device.isKnownHistory);
}

TEST_P(CloudContract, RefusesWhatMakesNoSense) {
    Device device(*store, zone);
    commit(device, {record(name(1))});
    const auto isRefused = [this](const ZonePush& push) {
        const auto result = store->push(push);
        return !result && result.error().code == CKError::Code::InvalidArguments;
    };
    EXPECT_TRUE(isRefused(device.pushOf({record({})})));
    EXPECT_TRUE(isRefused(device.pushOf({record(name(2)), record(name(2))})));
    EXPECT_TRUE(isRefused(device.pushOf({record(QString(QChar(0)))})));
    EXPECT_TRUE(isRefused(device.pushOf({record(QString(QChar(0xd800)))})));
    auto unsigned_ = device.pushOf({});
    unsigned_.tag = QUuid();
    EXPECT_TRUE(isRefused(unsigned_));
    EXPECT_EQ(store->changes(zone, {}, {}, {}, 0).error().code, CKError::Code::InvalidArguments);
    EXPECT_EQ(store->saveRecord(zone, record({})).error().code, CKError::Code::InvalidArguments);
    EXPECT_EQ(store->revision(), 1);
}

TEST_P(CloudContract, TellsSubscribersOfOthersWrites) {
    const auto other = openStore(cloud.account());
    int told = 0;
    ASSERT_EQ(store->subscribe([&told] { ++told; }), CloudStore::Notifications::Pushed);
    Device device(*other, zone);
    commit(device, {record(name(1))});
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told > 0; }, 30000));
    EXPECT_EQ(store->revision(), 1); // and the connection still answers
    told = 0;
    ASSERT_TRUE(other->saveRecord(zone, record(name(2))));
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told > 0; }, 30000));
}

INSTANTIATE_TEST_SUITE_P(Both, CloudContract, ::testing::Values(Cloud::Kind::File, Cloud::Kind::Server),
                         ::testing::PrintToStringParamName());
