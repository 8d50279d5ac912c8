#include "platform/cloud/AccountWatcher.h"

#include "platform/cloud/tests/TemporaryFile.h"

#include <QtTest/QTest>

using namespace platform;

namespace {

class AccountWatcherTest : public TemporaryFile {};

TEST_F(AccountWatcherTest, TellsOfASignInAChangeAndASignOut) {
    const ServiceFile file(path);
    AccountWatcher watcher(file);
    std::vector<AccountResult> told;
    const auto subscription =
        watcher.account().observeChanges([&told](const auto& account) { told.push_back(account); });
    const auto isTold = [&told](std::size_t count) {
        return QTest::qWaitFor([&] { return told.size() == count; });
    };

    const AccountResult first = CloudAccount(FileAccount{QStringLiteral("/one")});
    ASSERT_TRUE(file.write(**first));
    ASSERT_TRUE(isTold(1));
    EXPECT_EQ(told.back(), first);
    ASSERT_TRUE(file.write(**first)); // as after a change of the password
    ASSERT_TRUE(isTold(2));
    EXPECT_EQ(told.back(), first);
    QFile other(directory.filePath(QStringLiteral("other"))); // in the same folder, and none of this
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    QCoreApplication::processEvents();
    EXPECT_EQ(told.size(), 2U);
    put("[other]\nhost=h\n[quillet]\ndbname=sqlite:/two\n"); // in place, as an editor may write
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return told.back() == AccountResult(CloudAccount(FileAccount{QStringLiteral("/two")})); }));
    const std::size_t before = told.size();
    ASSERT_TRUE(file.remove());
    ASSERT_TRUE(isTold(before + 1));
    EXPECT_EQ(told.back(), AccountResult());
}

} // namespace
