#include "Quillet/browsing/HomeListViewController.h"

#include "Quillet/core/tests/TemporaryLibrary.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

using namespace quillet;

namespace {

class HomeListViewControllerTest : public TemporaryLibrary {
protected:
    static QMessageBox* warning() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }
};

TEST_F(HomeListViewControllerTest, WarnsEachTimeItAppearsWhereNobodyIsSignedIn) {
    qputenv("PGSERVICEFILE", root.filePath(QStringLiteral("missing")).toUtf8());
    HomeListViewController list;
    for (int appearance = 0; appearance < 2; ++appearance) {
        list.show();
        ASSERT_TRUE(QTest::qWaitFor([] { return warning() != nullptr; }));
        EXPECT_EQ(warning()->windowTitle(), QStringLiteral("iCloud"));
        EXPECT_TRUE(warning()->text().startsWith(QStringLiteral("Sign into your iCloud account")));
        warning()->close();
        list.hide();
    }
}

} // namespace
