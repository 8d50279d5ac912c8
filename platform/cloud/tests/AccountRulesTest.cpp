#include "platform/cloud/AccountRules.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

TEST(AccountRulesTest, OnlyThisMachineIsLocal) {
    for (const char* host : {"/run/postgresql", "localhost", "LocalHost", "127.0.0.1", "127.1.2.3", "::1"})
        EXPECT_TRUE(isLocalHost(QString::fromLatin1(host))) << host;
    for (const char* host : {"", "127.example.org", "127.0.0.1.example.org", "127.0.0.1\n", "127.1",
                             "localhost.example.org", "10.0.0.1", "::2"})
        EXPECT_FALSE(isLocalHost(QString::fromLatin1(host))) << host;
}

TEST(AccountRulesTest, AServerElsewhereHasToProveWhoItIs) {
    ServerAccount account{
        QStringLiteral("db.example.org"), 5432, QStringLiteral("d"), QStringLiteral("u"), {}, {}};
    for (const char* mode : {"", "require", "verify-ca", "VERIFY-FULL"}) {
        account.sslMode = QString::fromLatin1(mode);
        account.rootCertificate = QStringLiteral("/ca.pem");
        EXPECT_TRUE(objectionTo(account)) << mode;
    }
    account.sslMode = QStringLiteral("verify-full");
    EXPECT_FALSE(objectionTo(account));
    account.rootCertificate.clear();
    EXPECT_TRUE(objectionTo(account));
    account.host = QStringLiteral("localhost");
    EXPECT_FALSE(objectionTo(account));
    EXPECT_FALSE(objectionTo(FileAccount{QStringLiteral("/shared/q")}));
}

} // namespace
