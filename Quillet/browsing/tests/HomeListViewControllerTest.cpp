#include "Quillet/browsing/HomeListViewController.h"

#include "Quillet/core/tests/TemporaryLibrary.h"

#include <QtTest/QTest>

using namespace quillet;

namespace {

class HomeListViewControllerTest : public TemporaryLibrary {
protected:
};

TEST_F(HomeListViewControllerTest, WarnsEachTimeItAppearsWhereNobodyIsSignedIn) {
    qputenv("PGSERVICEFILE", root.filePath(QStringLiteral("missing")).toUtf8());
    HomeListViewController list;
    for (int appearance = 0; appearance < 2; ++appearance) {
        list.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return list.presentedViewController() != nullptr; }));
        auto* warning = list.presentedViewController();
        EXPECT_EQ(warning->title(), QStringLiteral("iCloud"));
        EXPECT_TRUE(
            warning->accessibleDescription().startsWith(QStringLiteral("Sign into your iCloud account")));
        warning->cancelPresentation();
        EXPECT_EQ(list.presentedViewController(), nullptr);
        list.hide();
    }
}

} // namespace
