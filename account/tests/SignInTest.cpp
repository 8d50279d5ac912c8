#include "account/tests/AccountFiles.h"

using namespace account;

namespace {

class SignInTest : public AccountFiles {};

TEST_F(SignInTest, SignsInAndOutAndLeavesNothing) {
    ASSERT_TRUE(signIn.signIn(server, QStringLiteral("p")));
    EXPECT_EQ(signIn.account(), platform::AccountResult(platform::CloudAccount(server)));
    EXPECT_EQ(contentsOf(passwordPath), "localhost:5432:d:u:p\n");
    ASSERT_TRUE(signIn.signIn(server, QString()));
    EXPECT_EQ(contentsOf(passwordPath), "localhost:5432:d:u:p\n") << "an empty one keeps what is there";
    ASSERT_TRUE(signIn.signOut());
    EXPECT_EQ(contentsOf(servicePath), "");
    EXPECT_EQ(contentsOf(passwordPath), "");
}

TEST_F(SignInTest, AnotherAccountTakesThePasswordOfTheOneBeforeAway) {
    ASSERT_TRUE(signIn.signIn(server, QStringLiteral("p")));
    auto other = server;
    other.user = QStringLiteral("v");
    ASSERT_TRUE(signIn.signIn(other, QStringLiteral("q")));
    EXPECT_EQ(contentsOf(passwordPath), "localhost:5432:d:v:q\n");
    ASSERT_TRUE(signIn.signIn(platform::FileAccount{QStringLiteral("/q")}, QString()));
    EXPECT_EQ(contentsOf(passwordPath), "");
}

TEST_F(SignInTest, AnAccountThatSharesItsLineWithTheOneBeforeKeepsIt) {
    ASSERT_TRUE(signIn.signIn(server, QStringLiteral("p")));
    auto socket = server;
    socket.host = QStringLiteral("/var/run/postgresql");
    EXPECT_TRUE(SignIn::keepsPassword(signIn.account(), socket));
    ASSERT_TRUE(signIn.signIn(socket, QStringLiteral("q")));
    EXPECT_EQ(contentsOf(passwordPath), "localhost:5432:d:u:q\n");
    ASSERT_TRUE(signIn.signIn(server, QString()));
    EXPECT_EQ(contentsOf(passwordPath), "localhost:5432:d:u:q\n");
}

TEST_F(SignInTest, APasswordThatCannotBeStoredSignsNobodyIn) {
    EXPECT_FALSE(signIn.signIn(server, QStringLiteral("p\n")));
    EXPECT_FALSE(QFile::exists(servicePath));
}

} // namespace
