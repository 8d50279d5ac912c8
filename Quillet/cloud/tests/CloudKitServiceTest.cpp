#include "Quillet/cloud/tests/CloudLibrary.h"

using namespace quillet;
using platform::CKError;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

class CloudKitServiceTest : public CloudLibrary {
protected:
    void queueActions() {
        service().performWhenZoneExists([this] { ran += q("first"); });
        service().performWhenZoneExists([this] { ran += q("second"); });
    }

    std::shared_ptr<MigrationRecord> fetchMarker() {
        std::promise<std::shared_ptr<MigrationRecord>> promise;
        service().fetchMigrationRecord([&promise](const auto& record) { promise.set_value(record); });
        return promise.get_future().get();
    }

    // Keeps the queue busy, so that what is asked meanwhile waits for it.
    struct Gate {
        explicit Gate(platform::CKContainer& container) {
            container.accountStatus(
                [opened = m_promise.get_future().share()](auto, const auto&) { opened.wait(); });
        }

        ~Gate() { m_promise.set_value(); }

        std::promise<void> m_promise;
    };

    QStringList ran; // on the queue; to be read once it has settled
};

TEST_F(CloudKitServiceTest, AZoneThatExistsRunsTheQueueInOrderAndIsNotMadeAgain) {
    cloud->addZone(zone);
    {
        const Gate gate(*container);
        queueActions();
        EXPECT_FALSE(service().createdCustomZone());
    }
    settle();
    EXPECT_TRUE(service().createdCustomZone());
    EXPECT_EQ(ran, (QStringList{q("first"), q("second")}));
    EXPECT_FALSE(cloud->calls().contains(q("saveZone")));
    service().performWhenZoneExists([this] { ran += q("at once"); });
    EXPECT_EQ(ran.back(), q("at once"));
    EXPECT_EQ(log(), (QStringList{q("☁️ no error performing actions"), q("☁️ Performing a pending action"),
                                  q("☁️ Performing a pending action")}));
    EXPECT_FALSE(defaultKeyValueStore().boolean(KeyStore::Keys::createdCustomZone));
}

TEST_F(CloudKitServiceTest, AMissingZoneIsMadeAfterAnyErrorAndTheQueueRuns) {
    cloud->fail(q("hasZone"), CKError::Code::PermissionFailure);
    {
        const Gate gate(*container);
        queueActions();
    }
    settle();
    EXPECT_EQ(ran.size(), 2);
    EXPECT_TRUE(service().createdCustomZone());
    EXPECT_EQ(defaultKeyValueStore().boolean(KeyStore::Keys::createdCustomZone), true);
    EXPECT_EQ(log(),
              (QStringList{q("☁️ need to create the zone!"), q("☁️ Zone created"), q("☁️ Running the actions"),
                           q("☁️ Performing a pending action"), q("☁️ Performing a pending action")}));
}

TEST_F(CloudKitServiceTest, AZoneThatCannotBeMadeLeavesTheQueueForGood) {
    cloud->fail(q("saveZone"), CKError::Code::QuotaExceeded);
    queueActions();
    settle();
    cloud->mend(q("saveZone"));
    queueActions();
    settle();
    EXPECT_TRUE(ran.isEmpty());
    EXPECT_FALSE(service().createdCustomZone());
    EXPECT_EQ(cloud->calls().count(q("saveZone")), 1) << "nothing is tried twice";
    EXPECT_EQ(log(), (QStringList{q("☁️ need to create the zone!"), q("☁️ Zone created")}));
    EXPECT_FALSE(defaultKeyValueStore().boolean(KeyStore::Keys::createdCustomZone));
}

TEST_F(CloudKitServiceTest, OfTwoMigrationRecordsTheFirstCounts) {
    addMarker(q("b"), false);
    addMarker(q("a"), true);
    settle();
    const auto record = fetchMarker();
    ASSERT_TRUE(record);
    EXPECT_TRUE(record->isRevision());
    EXPECT_EQ(record->name(), QString()) << "a marker has no field of that name";
    EXPECT_EQ(record->lastUpdate(), QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, Qt::UTC));
    EXPECT_EQ(log().last(2), (QStringList{q("☁️ There is a Record - can i get data from it?"),
                                          q("☁️ There is a CK record. Nice")}));
}

TEST_F(CloudKitServiceTest, AMigrationRecordWithoutABinaryIdIsNone) {
    addRecord(markerType, q("a"), {{q("id"), q("text")}, {q("isRevision"), true}});
    addMarker(q("b"), true);
    EXPECT_FALSE(fetchMarker());
    EXPECT_EQ(log().last(2), (QStringList{q("☁️ There is a Record - can i get data from it?"),
                                          q("☁️ There is no migration record")}));
}

TEST_F(CloudKitServiceTest, FieldsOfAWrongTypeReadAsTheirDefaults) {
    addRecord(markerType, q("a"),
              {{q("id"), QByteArray("x")},
               {q("name"), q("n")},
               {q("lastUpdate"), qint64(1)},
               {q("isRevision"), qint64(1)}});
    const auto record = fetchMarker();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->name(), q("n"));
    EXPECT_EQ(record->lastUpdate(), std::nullopt);
    EXPECT_FALSE(record->isRevision());
}

TEST_F(CloudKitServiceTest, NoAnswerIsNoRecordAndSaysWhy) {
    EXPECT_FALSE(fetchMarker());
    cloud->fail(q("records"), CKError::Code::ServiceUnavailable);
    EXPECT_FALSE(fetchMarker());
    const QStringList lines = log().filter(q("fetch error"));
    EXPECT_EQ(lines, (QStringList{q("☁️ fetch error nil"),
                                  q("☁️ fetch error 6 (serviceUnavailable) as the test wants it")}));
}

TEST_F(CloudKitServiceTest, AQueryOfSnippetsThatFailsIsAnEmptyList) {
    addLegacySnippet(q("one"));
    const auto count = [this] {
        std::promise<std::size_t> promise;
        service().fetchSnippetRecords([&promise](const auto& records) { promise.set_value(records.size()); });
        return promise.get_future().get();
    };
    EXPECT_EQ(count(), 1U);
    cloud->fail(q("records"), CKError::Code::NetworkFailure);
    EXPECT_EQ(count(), 0U);
}

TEST_F(CloudKitServiceTest, ErrorsOfASaveAreMappedByTheirCode) {
    using Case = CloudKitServiceError::Case;
    const platform::CKRecord record(q("T"), {q("n"), {zone}});
    const auto save = [&] {
        std::promise<std::pair<bool, std::optional<CloudKitServiceError>>> promise;
        service().saveRecord(record, container->privateCloudDatabase(),
                             [&promise](const auto& saved, const auto& error) {
                                 promise.set_value({saved.has_value(), error});
                             });
        return promise.get_future().get();
    };
    EXPECT_EQ(save(), std::pair(true, std::optional<CloudKitServiceError>()));
    const std::pair<CKError::Code, Case> codes[] = {{CKError::Code::NetworkUnavailable, Case::networkFailure},
                                                    {CKError::Code::NetworkFailure, Case::networkFailure},
                                                    {CKError::Code::RequestRateLimited, Case::rateLimited},
                                                    {CKError::Code::NotAuthenticated, Case::unauthenticated},
                                                    {CKError::Code::QuotaExceeded, Case::generic}};
    for (const auto& [code, kind] : codes) {
        cloud->fail(q("saveRecord"), code);
        const auto [isSaved, error] = save();
        EXPECT_FALSE(isSaved);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->kind, kind);
        EXPECT_EQ(error->error.has_value(), kind == Case::generic);
    }
    EXPECT_EQ(log().count(q("A record has been saved")), 6);
}

} // namespace
