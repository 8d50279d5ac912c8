#include "platform/cloud/CKContainer.h"

#include "platform/cloud/tests/FakeCloud.h"

#include <QtCore/QThread>
#include <gtest/gtest.h>

#include <future>

using namespace platform;

namespace {

const CKRecordZoneID zoneID{QStringLiteral("Z")};

class CKContainerTest : public ::testing::Test {
protected:
    // Hands a call a completion and waits for what it is given.
    template <typename Result, typename Call>
    static Result await(Call call) {
        std::promise<Result> promise;
        call([&promise](const Result& result) { promise.set_value(result); });
        return promise.get_future().get();
    }

    CloudResult<std::vector<CKRecordZone>> fetchZone() {
        return await<CloudResult<std::vector<CKRecordZone>>>([this](auto completion) {
            database().add(
                CKFetchRecordZonesOperation{{zoneID}, QualityOfService::UserInitiated, completion});
        });
    }

    CloudResult<std::vector<CKRecord>> query() {
        return await<CloudResult<std::vector<CKRecord>>>(
            [this](auto completion) { database().performQuery({QStringLiteral("T")}, zoneID, completion); });
    }

    std::pair<CKAccountStatus, bool> status() {
        std::promise<std::pair<CKAccountStatus, bool>> promise;
        container.accountStatus([&promise](CKAccountStatus status, const std::optional<CKError>& error) {
            promise.set_value({status, error.has_value()});
        });
        return promise.get_future().get();
    }

    CKDatabase& database() { return container.privateCloudDatabase(); }

    std::shared_ptr<FakeCloud> cloud = FakeCloud::create();
    AccountResult account = CloudAccount(FileAccount{QStringLiteral("/cloud")});
    CKContainer container{[this] { return account; }, cloud->opener()};
};

TEST_F(CKContainerTest, AZoneIsMissingUntilItIsMade) {
    EXPECT_EQ(fetchZone().error().code, CKError::Code::ZoneNotFound);
    const auto made = await<CloudResult<std::vector<CKRecordZone>>>([this](auto completion) {
        database().add(
            CKModifyRecordZonesOperation{{{zoneID}}, {}, QualityOfService::UserInitiated, completion});
    });
    EXPECT_TRUE(made);
    EXPECT_EQ(fetchZone(), (std::vector<CKRecordZone>{{zoneID}}));
    EXPECT_EQ(cloud->calls().count(QStringLiteral("open")), 1) << "a zone that is missing is an answer";
}

TEST_F(CKContainerTest, ARecordIsSavedAndFoundAndOneThatCannotBeReadHasNoFields) {
    CKRecord record(QStringLiteral("T"), {QStringLiteral("a"), zoneID});
    record[QStringLiteral("k")] = QStringLiteral("v");
    EXPECT_EQ(
        await<CloudResult<CKRecord>>([&](auto completion) { database().saveRecord(record, completion); }),
        record);
    cloud->add(QStringLiteral("Z"), {QStringLiteral("b"), QStringLiteral("T"), 0, false, "\xff", {}});
    const CKRecord unreadable(QStringLiteral("T"), {QStringLiteral("b"), zoneID});
    EXPECT_EQ(query(), (std::vector{record, unreadable}));
}

TEST_F(CKContainerTest, CompletionsRunOnOneThreadThatIsNotTheCallers) {
    const auto threadOf = [this] {
        return await<QThread*>([this](auto completion) {
            container.accountStatus(
                [completion](auto, const auto&) { completion(QThread::currentThread()); });
        });
    };
    QThread* const thread = threadOf();
    EXPECT_NE(thread, QThread::currentThread());
    EXPECT_EQ(threadOf(), thread);
}

TEST_F(CKContainerTest, ABrokenConnectionIsOpenedAnewAndNothingIsTriedTwice) {
    cloud->fail(QStringLiteral("records"), CKError::Code::NetworkFailure);
    EXPECT_EQ(query().error().code, CKError::Code::NetworkFailure);
    cloud->mend(QStringLiteral("records"));
    EXPECT_TRUE(query());
    EXPECT_TRUE(query());
    const QString open = QStringLiteral("open");
    const QString records = QStringLiteral("records");
    EXPECT_EQ(cloud->calls(), (QStringList{open, records, open, records, records}));
}

TEST_F(CKContainerTest, FollowsTheAccount) {
    EXPECT_EQ(status(), std::pair(CKAccountStatus::Available, false));
    EXPECT_TRUE(query());
    account = CloudAccount(FileAccount{QStringLiteral("/another")});
    EXPECT_TRUE(query());
    EXPECT_EQ(cloud->calls().count(QStringLiteral("open")), 2);
    account = AccountResult();
    EXPECT_EQ(query().error().code, CKError::Code::NotAuthenticated);
    EXPECT_EQ(status(), std::pair(CKAccountStatus::NoAccount, false));
    account = CloudAccount(ServerAccount{
        QStringLiteral("db.example.org"), 5432, QStringLiteral("d"), QStringLiteral("u"), {}, {}});
    EXPECT_EQ(status(), std::pair(CKAccountStatus::Restricted, false));
    account = std::unexpected(CKError{CKError::Code::InvalidArguments, QStringLiteral("broken")});
    EXPECT_EQ(query().error().code, CKError::Code::InvalidArguments);
    EXPECT_EQ(status(), std::pair(CKAccountStatus::CouldNotDetermine, true));
    EXPECT_EQ(cloud->calls().count(QStringLiteral("open")), 2);
}

TEST(CKContainerEndTest, ARequestThatIsUnderWayIsBrokenOff) {
    const auto cloud = FakeCloud::create();
    std::promise<CloudResult<std::vector<CKRecord>>> answer;
    {
        CKContainer container(FakeCloud::signedIn(), cloud->opener());
        auto isHeld = cloud->hold(QStringLiteral("records"));
        container.privateCloudDatabase().performQuery(
            {QStringLiteral("T")}, zoneID, [&answer](const auto& result) { answer.set_value(result); });
        isHeld.wait();
    }
    EXPECT_EQ(answer.get_future().get().error().code, CKError::Code::NetworkFailure);
}

TEST(CloudConnectionTest, AStoreThatWasBeingOpenedIsInterruptedAndNoOtherIsOpened) {
    const auto cloud = FakeCloud::create();
    CloudConnection* interrupted = nullptr;
    CloudConnection connection(FakeCloud::signedIn(), [&](const CloudAccount&) {
        interrupted->interrupt();
        return cloud->open();
    });
    interrupted = &connection;
    (void)cloud->hold(QStringLiteral("records"));
    const auto store = connection.store();
    ASSERT_TRUE(store);
    EXPECT_FALSE((*store)->records(QStringLiteral("Z"), QStringLiteral("T")));
    connection.close();
    EXPECT_EQ(connection.store().error().code, CKError::Code::NetworkFailure);
    EXPECT_EQ(cloud->calls().count(QStringLiteral("open")), 1);
}

TEST(CloudQueueTest, UserInitiatedWorkGoesFirstAndAStoppedQueueDropsTheRest) {
    QStringList order;
    std::promise<void> gate;
    std::promise<void> done;
    CloudQueue queue;
    queue.post([opened = gate.get_future().share()] { opened.wait(); });
    queue.post([&order] { order += QStringLiteral("default"); });
    queue.post([&order] { order += QStringLiteral("user"); }, QualityOfService::UserInitiated);
    queue.post([&done] { done.set_value(); });
    gate.set_value();
    done.get_future().wait();
    queue.stop([&order] { order += QStringLiteral("last"); });
    queue.post([&order] { order += QStringLiteral("dropped"); });
    queue.stop();
    EXPECT_EQ(order,
              (QStringList{QStringLiteral("user"), QStringLiteral("default"), QStringLiteral("last")}));
}

} // namespace
