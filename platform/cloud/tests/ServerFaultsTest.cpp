#include "platform/cloud/ServerParameters.h"
#include "platform/cloud/ServerProbe.h"
#include "platform/cloud/ServerSchema.h"
#include "platform/cloud/tests/CloudFixture.h"
#include "platform/cloud/tests/SilentServer.h"
#include "platform/cloud/tests/TestAuthority.h"

#include <QtCore/QFile>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace platform;
using namespace platform::testing;
using Code = CKError::Code;

namespace {

const QString zone = QStringLiteral("zone");
constexpr Deadline hasty = std::chrono::milliseconds(400);

// Committed for a push that must be.
std::optional<PushOutcome> pushOne(Device& device, const QString& name) {
    const auto result = device.push({record(name)});
    return result ? std::optional(result->outcome) : std::nullopt;
}

std::optional<Code> codeOfOpening(const CloudAccount& account, Deadline deadline = patient) {
    const auto store = openCloudStore(account, deadline);
    return store ? std::nullopt : std::optional(store.error().code);
}

ServerAccount accountAt(int port) {
    return {QStringLiteral("127.0.0.1"), port, QStringLiteral("cloud"), QStringLiteral("alice"),
            QStringLiteral("disable"),   {}};
}

} // namespace

TEST(ServerFaults, WhoCannotBeReachedIsTold) {
    auto account = accountAt(1);
    EXPECT_EQ(codeOfOpening(account), Code::NetworkUnavailable);
    account.host = QStringLiteral("/nowhere");
    EXPECT_EQ(codeOfOpening(account), Code::NetworkUnavailable);
}

TEST(ServerFaults, AServerOnAnotherMachineWithoutVerificationIsNotEvenTried) {
    const TestAuthority authority(QStringLiteral("cloud.invalid"));
    auto account = accountAt(1);
    for (const auto* host : {"cloud.invalid", "192.0.2.1", "2001:db8::1", "128.0.0.1", "localhost.invalid"}) {
        account.host = QLatin1StringView(host);
        account.sslMode = QStringLiteral("verify-full");
        account.rootCertificate = QString();
        EXPECT_EQ(codeOfOpening(account), Code::NotAuthenticated) << host;
        account.rootCertificate = QStringLiteral("/nowhere.crt");
        EXPECT_EQ(codeOfOpening(account), Code::NotAuthenticated) << host;
        account.rootCertificate = authority.certificate();
        account.sslMode = QStringLiteral("verify-ca");
        EXPECT_EQ(codeOfOpening(account), Code::NotAuthenticated) << host;
    }
    account.host = QStringLiteral("cloud.invalid");
    account.sslMode = QStringLiteral("verify-full"); // tried, and not found
    EXPECT_EQ(codeOfOpening(account), Code::NetworkUnavailable);
}

// libpq would split them, and the rules for the first host are not those for the second.
TEST(ServerFaults, AListOfHostsIsNoHost) {
    auto account = accountAt(1);
    for (const auto* host : {"/nowhere,192.0.2.1", "127.0.0.1,192.0.2.1", ",", "localhost,"}) {
        account.host = QLatin1StringView(host);
        EXPECT_EQ(codeOfOpening(account), Code::InvalidArguments) << host;
    }
}

TEST(ServerFaults, AWrongPasswordASchemaOfAnotherVersionAndNoneAreTold) {
    PostgresServer server(PostgresServer::Schema::None);
    const auto account = server.addUser(QStringLiteral("alice"));
    EXPECT_EQ(codeOfOpening(account), Code::ServiceUnavailable);
    server.run(serverSchema());
    EXPECT_EQ(codeOfOpening(account), std::nullopt);
    server.run(QStringLiteral("UPDATE quillet_schema SET version = version + 1"));
    EXPECT_EQ(codeOfOpening(account), Code::IncompatibleVersion);
    server.run(QStringLiteral("REVOKE quillet_users FROM alice"));
    EXPECT_EQ(codeOfOpening(account), Code::PermissionFailure);
    auto other = account;
    other.database = QStringLiteral("elsewhere");
    EXPECT_EQ(codeOfOpening(other), Code::InvalidArguments);
    server.setPassword(QStringLiteral("alice"), QStringLiteral("hunter2"));
    const auto refused = openCloudStore(account, patient);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, Code::NotAuthenticated);
    EXPECT_FALSE(refused.error().message.contains(QStringLiteral("hunter2")));
    ASSERT_TRUE(QFile::remove(qEnvironmentVariable("PGPASSFILE")));
    EXPECT_EQ(codeOfOpening(account), Code::NotAuthenticated);
}

TEST(ServerFaults, ACertificateMustVerify) {
    const TestAuthority authority(QStringLiteral("localhost"));
    const TestAuthority stranger(QStringLiteral("localhost"));
    PostgresServer server(PostgresServer::Schema::Installed, authority.serverSettings());
    auto account = server.addUser(QStringLiteral("alice"));
    account.host = QStringLiteral("localhost");
    account.sslMode = QStringLiteral("verify-full");
    account.rootCertificate = authority.certificate();
    EXPECT_EQ(codeOfOpening(account), std::nullopt);
    account.rootCertificate = stranger.certificate();
    EXPECT_EQ(codeOfOpening(account), Code::NotAuthenticated);
    account.rootCertificate = authority.certificate();
    account.host = QStringLiteral("127.0.0.1"); // which the certificate does not speak for
    EXPECT_EQ(codeOfOpening(account), Code::NotAuthenticated);
}

TEST(ServerFaults, OneThatAcceptsAndSaysNothingIsGivenUp) {
    const SilentServer server(SilentServer::Until::Connected);
    EXPECT_EQ(codeOfOpening(accountAt(server.port()), hasty), Code::NetworkFailure);
}

TEST(ServerFaults, AnAddressThatSaysNothingDoesNotHideTheNext) {
    const SilentServer silent(SilentServer::Until::Connected); // at the first address alone
    const auto parameters = serverParameters(accountAt(silent.port()), hasty);
    ASSERT_TRUE(parameters);
    const QStringList addresses = {QStringLiteral("127.0.0.1"), QStringLiteral("127.0.0.2")};
    const auto probed = probeServer(*parameters, addresses, std::chrono::steady_clock::now() + hasty);
    ASSERT_FALSE(probed);
    EXPECT_EQ(probed.error().code, Code::NetworkUnavailable) << "the second one refuses";
}

TEST(ServerFaults, OneThatFallsSilentRightAfterTheHandshakeIsGivenUp) {
    const SilentServer server(SilentServer::Until::Ready);
    EXPECT_EQ(codeOfOpening(accountAt(server.port()), hasty), Code::NetworkFailure);
    EXPECT_GE(server.handshakes(), 2);
}

TEST(ServerFaults, OneThatStandsStillIsGivenUpAndFoundAgain) {
    PostgresServer server;
    const auto account = server.addUser(QStringLiteral("alice"));
    const auto store = openStore(account, std::chrono::seconds(2));
    Device device(*store, zone);
    ASSERT_EQ(pushOne(device, QStringLiteral("before")), PushOutcome::Committed);
    server.freeze();
    EXPECT_EQ(store->revision().error().code, Code::NetworkFailure);           // in mid-connection
    EXPECT_EQ(codeOfOpening(account, hasty), Code::NetworkFailure);            // and for a new one
    EXPECT_EQ(device.push({record(zone)}).error().code, Code::NetworkFailure); // in reconnecting
    server.thaw();
    EXPECT_EQ(store->revision(), 1);
    ASSERT_EQ(pushOne(device, QStringLiteral("after")), PushOutcome::Committed);
}

TEST(ServerFaults, OneThatRestartsIsFoundAgainWithItsSubscription) {
    PostgresServer server;
    const auto account = server.addUser(QStringLiteral("alice"));
    const auto store = openStore(account);
    int told = 0;
    ASSERT_EQ(store->subscribe([&told] { ++told; }), CloudStore::Notifications::Pushed);
    server.kill();
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told > 0; }, 30000)) << "its end was not noticed";
    EXPECT_EQ(store->revision().error().code, Code::NetworkUnavailable);
    server.start();
    EXPECT_EQ(store->revision(), 0);
    told = 0;
    const auto other = openStore(account);
    Device device(*other, zone);
    ASSERT_EQ(pushOne(device, QStringLiteral("one")), PushOutcome::Committed);
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told > 0; }, 30000));
}
