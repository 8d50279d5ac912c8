#include "Quillet/cloud/AccountCheck.h"

#include "platform/cloud/tests/FakeCloud.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <gtest/gtest.h>

#include <future>

using namespace quillet;
using platform::CloudAccount;

namespace {

// The warnings that a check of that account gives.
std::vector<AccountWarning> warningsFor(const platform::AccountResult& account) {
    platform::CKContainer container([account] { return account; }, platform::FakeCloud::create()->opener());
    std::vector<AccountWarning> warnings;
    checkAccount(container, [&warnings](const AccountWarning& warning) {
        EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
        warnings.push_back(warning);
    });
    std::promise<void> checked;
    container.accountStatus([&checked](auto, const auto&) { checked.set_value(); });
    checked.get_future().wait();
    EXPECT_TRUE(warnings.empty()) << "not before a later turn";
    QCoreApplication::processEvents();
    return warnings;
}

TEST(AccountCheckTest, WarnsWhereThereIsNoAccountOrItMustNotBeUsed) {
    const auto missing = warningsFor({});
    ASSERT_EQ(missing.size(), 1U);
    EXPECT_EQ(missing[0].title, QStringLiteral("iCloud"));
    EXPECT_EQ(missing[0].message,
              QStringLiteral("Sign into your iCloud account to use Quillet. Without this your "
                             "snippets will only ever save locally."));
    EXPECT_EQ(missing[0].action, QStringLiteral("Okay"));
    const platform::ServerAccount unsafe{
        QStringLiteral("db.example.org"), 5432, QStringLiteral("d"), QStringLiteral("u"), {}, {}};
    EXPECT_EQ(warningsFor(CloudAccount(unsafe)).size(), 1U);
}

TEST(AccountCheckTest, AnAccountOrAnErrorWarnsOfNothing) {
    EXPECT_TRUE(warningsFor(CloudAccount(platform::FileAccount{QStringLiteral("/q")})).empty());
    EXPECT_TRUE(warningsFor(std::unexpected(platform::CKError{})).empty());
}

} // namespace
