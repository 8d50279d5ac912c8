#include "Quillet/browsing/HomeListViewController.h"

#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/cloud/CloudKitService.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/screens/controllers/NavigationController.h"

#include <QtTest/QSignalSpy>
#include <gmock/gmock.h>

using namespace quillet;

namespace {

class Delegate : public SnippetSelectionDelegate, public SnippetCreationDelegate {
public:
    MOCK_METHOD(void, didSelect, (const std::shared_ptr<Snippet>&), (override));
    MOCK_METHOD(void, didDelete, (const std::shared_ptr<Snippet>&), (override));
    MOCK_METHOD(void, addToFolder, (const std::shared_ptr<Snippet>&), (override));
    MOCK_METHOD(void, didCreate, (const std::shared_ptr<Snippet>&), (override));
};

class HomeListViewControllerTest : public TemporaryLibrary {
protected:
    void open() {
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        auto screen = std::make_unique<HomeListViewController>();
        home = screen.get();
        home->delegate = &delegate;
        home->creationDelegate = &delegate;
        navigation = std::make_unique<platform::NavigationController>(std::move(screen));
        navigation->resize(400, 700);
        navigation->show();
        navigation->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(navigation.get()));
    }

    SnippetList& list() const { return *home->findChild<SnippetList*>(); }

    QString presentedTitle() const {
        auto* presented = qobject_cast<platform::NavigationController*>(home->presentedViewController());
        return presented ? presented->topViewController()->title() : QString();
    }

    void openSnippets() const {
        driver::clickRow(list(), QStringLiteral("Languages"));
        driver::clickRow(list(), QStringLiteral("swift"));
    }

    ::testing::StrictMock<Delegate> delegate;
    std::unique_ptr<platform::NavigationController> navigation;
    HomeListViewController* home = nullptr;
};

TEST_F(HomeListViewControllerTest, WarnsEachTimeItAppearsWhereNobodyIsSignedIn) {
    qputenv("PGSERVICEFILE", root.filePath(QStringLiteral("missing")).toUtf8());
    open();
    for (int appearance = 0; appearance < 2; ++appearance) {
        driver::waitFor<QWidget>(*navigation, QStringLiteral("iCloud"));
        driver::waitFor<QWidget>(
            *navigation, QStringLiteral("Sign into your iCloud account to use Quillet. Without this your "
                                        "snippets will only ever save locally."));
        driver::click(*navigation, QStringLiteral("Okay"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !home->presentedViewController(); }));
        home->hide();
        home->show();
    }
}

TEST_F(HomeListViewControllerTest, TheBarHasTheTitleAndNamedButtons) {
    open();
    EXPECT_EQ(home->title(), QStringLiteral("Quillet"));
    int added = 0;
    home->onAdd = [&] { ++added; };
    driver::click(*navigation, QStringLiteral("Add"));
    QTest::keyClick(&list(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(added, 2);
}

TEST_F(HomeListViewControllerTest, TheSortMenuSetsTheOrderAndRebuilds) {
    const auto snippet = [](const char* title, qint64 seconds) {
        auto made = Snippet::create(QString::fromLatin1(title), {}, {}, QStringLiteral("swift"));
        made->setLastUpdate(QDateTime::fromSecsSinceEpoch(seconds));
    };
    snippet("a", 1);
    snippet("b", 2);
    open();
    openSnippets();
    const auto leaves = [this] {
        const QModelIndex swift = driver::findRow(*list().model(), QStringLiteral("swift"));
        return swift.model()->index(0, 0, swift).data().toString() +
               swift.model()->index(1, 0, swift).data().toString();
    };
    const auto sortBy = [this](const QString& title) {
        driver::click(*navigation, QStringLiteral("Sort"));
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        driver::choose(*menu, title);
        turn();
    };
    EXPECT_EQ(leaves(), QStringLiteral("ab"));
    sortBy(QStringLiteral("Last Modified"));
    EXPECT_EQ(leaves(), QStringLiteral("ba"));
    EXPECT_EQ(UserSettings::shared().sortIndex.value(), 0);
    sortBy(QStringLiteral("Last Modified ·"));
    EXPECT_EQ(leaves(), QStringLiteral("ba"));
    sortBy(QStringLiteral("Name"));
    EXPECT_EQ(leaves(), QStringLiteral("ab"));
    EXPECT_EQ(UserSettings::shared().sortIndex.value(), 1);
}

TEST_F(HomeListViewControllerTest, WhatTheListAsksForGoesToTheDelegates) {
    const auto snippet = Snippet::create(QStringLiteral("one"), {}, {}, QStringLiteral("swift"));
    open();
    openSnippets();
    const auto row = [&] { return driver::findRow(*list().model(), QStringLiteral("one")); };
    const ::testing::InSequence order;
    EXPECT_CALL(delegate, didSelect(snippet));
    EXPECT_CALL(delegate, addToFolder(snippet));
    EXPECT_CALL(delegate, didDelete(snippet));
    EXPECT_CALL(delegate, didCreate(snippet));
    driver::clickRow(list(), row());
    driver::choose(*driver::openContextMenu(list(), row()), QStringLiteral("Add to folder"));
    driver::choose(*driver::openContextMenu(list(), row()), QStringLiteral("Delete Snippet"));
    home->didCreate(snippet);
}

TEST_F(HomeListViewControllerTest, TheGroupsButtonsOpenTheSheetsWithoutASnippet) {
    open();
    for (const auto& [group, title] : {std::pair(QStringLiteral("Folders"), QStringLiteral("Folders")),
                                       std::pair(QStringLiteral("Tags"), QStringLiteral("Tags"))}) {
        Q_EMIT list().buttonPressed(driver::findRow(*list().model(), group));
        EXPECT_EQ(presentedTitle(), title);
        driver::click(*navigation, QStringLiteral("Close"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return presentedTitle().isEmpty(); }));
    }
}

TEST_F(HomeListViewControllerTest, ACloudKitUpdateIsHeardAndChangesNothing) {
    open();
    const QSignalSpy resets(list().model(), &QAbstractItemModel::modelReset);
    platform::NotificationCenter::defaultCenter().post(cloudKitUpdateNotification);
    turn();
    EXPECT_TRUE(resets.isEmpty());
    navigation.reset();
    platform::NotificationCenter::defaultCenter().post(cloudKitUpdateNotification);
}

} // namespace
