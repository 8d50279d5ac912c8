#include "platform/cloud/AccountRules.h"

#include "platform/cloud/tests/TemporaryFile.h"

using namespace platform;

namespace {

class AccountRulesTest : public TemporaryFile {};

TEST_F(AccountRulesTest, OnlyThisMachineIsLocal) {
    for (const char* host : {"/run/postgresql", "localhost", "LocalHost", "127.0.0.1", "127.1.2.3", "::1"})
        EXPECT_TRUE(isLocalHost(QString::fromLatin1(host))) << host;
    for (const char* host :
         {"", "127.example.org", "127.0.0.1.example.org", "127.0.0.1\n", "127.1", "localhost.example.org",
          "/run,db.example.org", "127.0.0.1,10.0.0.1", "10.0.0.1", "::2"})
        EXPECT_FALSE(isLocalHost(QString::fromLatin1(host))) << host;
}

TEST_F(AccountRulesTest, AServerElsewhereHasToProveWhoItIs) {
    put("authorities");
    ServerAccount account{
        QStringLiteral("db.example.org"), 5432, QStringLiteral("d"), QStringLiteral("u"), {}, {}};
    for (const char* mode : {"", "require", "verify-ca", "VERIFY-FULL"}) {
        account.sslMode = QString::fromLatin1(mode);
        account.rootCertificate = path;
        EXPECT_TRUE(objectionTo(account)) << mode;
    }
    account.sslMode = QStringLiteral("verify-full");
    EXPECT_FALSE(objectionTo(account));
    account.rootCertificate += u'x';
    EXPECT_TRUE(objectionTo(account)) << "a file that is not there";
    account.rootCertificate.clear();
    EXPECT_TRUE(objectionTo(account));
    account.host = QStringLiteral("localhost,db.example.org");
    EXPECT_TRUE(objectionTo(account));
    account.host = QStringLiteral("localhost");
    EXPECT_FALSE(objectionTo(account));
    EXPECT_FALSE(objectionTo(FileAccount{QStringLiteral("/shared/q")}));
}

} // namespace
