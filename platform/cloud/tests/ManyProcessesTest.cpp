#include "platform/cloud/tests/CloudFixture.h"

#include <QtCore/QProcess>
#include <gtest/gtest.h>

#include <set>

using namespace platform;
using namespace platform::testing;

namespace {

const QString zone = QStringLiteral("zone");

// A device in another process.
class Pusher {
public:
    Pusher(const CloudAccount& account, int device, int pushes, int batch) {
        const auto* server = std::get_if<ServerAccount>(&account);
        const QString where =
            server != nullptr ? QString::number(server->port) : std::get<FileAccount>(account).path;
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(CLOUD_PUSHER),
                        {where, QString::number(device), QString::number(pushes), QString::number(batch)});
    }

    // Waits until it has been told of so many commits.
    void awaitCommits(qsizetype number) {
        while (m_said.count('\n') < number && m_process.waitForReadyRead(60000))
            m_said += m_process.readAllStandardOutput();
    }

    // Waits for its end; the number of commits that it was told of.
    qsizetype commits() {
        EXPECT_TRUE(m_process.waitForFinished(120000));
        return (m_said += m_process.readAllStandardOutput()).count('\n');
    }

    int exitCode() const { return m_process.exitCode(); }

private:
    QProcess m_process;
    QByteArray m_said;
};

class ManyProcesses : public ::testing::TestWithParam<std::tuple<Cloud::Kind, int>> {};

void expectNothingLost(const CloudAccount& account, int devices, int pushes, int batch) {
    std::vector<std::unique_ptr<Pusher>> pushers;
    for (int device = 0; device < devices; ++device)
        pushers.push_back(std::make_unique<Pusher>(account, device, pushes, batch));
    for (const auto& pusher : pushers) {
        EXPECT_EQ(pusher->commits(), pushes);
        EXPECT_EQ(pusher->exitCode(), 0);
    }
    const auto store = openStore(account);
    Device reader(*store, zone);
    ASSERT_TRUE(reader.pull());
    EXPECT_EQ(reader.records().size(), static_cast<std::size_t>(devices * pushes * batch));
    EXPECT_EQ(reader.head.revision, devices * pushes);
    std::map<qint64, std::set<QString>> byRevision; // one push each, whole
    for (const auto& [name, one] : reader.records())
        byRevision[one.revision].insert(name.section(u'-', 0, 1));
    EXPECT_EQ(byRevision.size(), static_cast<std::size_t>(devices * pushes));
    for (const auto& [revision, origins] : byRevision)
        EXPECT_EQ(origins.size(), 1U) << "revision " << revision;
}

} // namespace

TEST_P(ManyProcesses, PushAtOnceAndNoRowIsLost) {
    const auto [kind, devices] = GetParam();
    const Cloud cloud(kind);
    expectNothingLost(cloud.account(), devices, 12, 5);
}

INSTANTIATE_TEST_SUITE_P(Both, ManyProcesses,
                         ::testing::Combine(::testing::Values(Cloud::Kind::File, Cloud::Kind::Server),
                                            ::testing::Values(2, 8)));

// Where every transaction is serializable the server breaks off all but one of those that meet.
TEST(SerializationFailures, AreTriedAgain) {
    Cloud cloud(Cloud::Kind::Server);
    cloud.server()->run(
        QStringLiteral("ALTER ROLE alice SET default_transaction_isolation = 'serializable'"));
    expectNothingLost(cloud.account(), 6, 8, 3);
}

// The parameter is the number of commits before the kill.
class KilledServer : public ::testing::TestWithParam<int> {};

TEST_P(KilledServer, HasEveryAcknowledgedPushWholeAndNoOtherInPart) {
    constexpr int batch = 100;
    PostgresServer server;
    const auto account = server.addUser(QStringLiteral("alice"));
    Pusher pusher(account, 0, 100000, batch);
    pusher.awaitCommits(GetParam());
    server.kill();
    const auto acknowledged = pusher.commits();
    EXPECT_EQ(pusher.exitCode(), 2);
    EXPECT_GE(acknowledged, GetParam());
    server.start();

    const auto store = openStore(account);
    Device reader(*store, zone);
    ASSERT_TRUE(reader.pull());
    EXPECT_EQ(reader.records().size() % batch, 0U);
    const auto pushes = static_cast<qsizetype>(reader.records().size() / batch);
    EXPECT_GE(pushes, acknowledged);
    EXPECT_LE(pushes, acknowledged + 1); // that whose answer was lost
    EXPECT_EQ(reader.head.revision, pushes);
    for (qsizetype push = 0; push < pushes; ++push)
        for (int i = 0; i < batch; ++i)
            ASSERT_TRUE(reader.records().contains(QStringLiteral("0-%1-%2").arg(push).arg(i)));
}

INSTANTIATE_TEST_SUITE_P(AfterCommits, KilledServer, ::testing::Values(1, 12));
