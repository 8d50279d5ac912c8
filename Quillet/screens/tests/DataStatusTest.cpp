#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/cloud/tests/CloudLibrary.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/Tag.h"
#include "Quillet/screens/settings/DataStatusView.h"
#include "Quillet/screens/settings/LegacyView.h"
#include "Quillet/screens/settings/ValueRow.h"

#include <gmock/gmock.h>

using namespace quillet;

namespace {

class DataStatusTest : public CloudLibrary {
protected:
    void open(QSize size = {460, 600}) {
        QApplication::setEffectEnabled(Qt::UI_General, false); // nothing slides
        window = std::make_unique<SnippetNavigationController>(
            std::make_unique<DataStatusView>(migrator(), service()));
        window->resize(size);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    void TearDown() override {
        container.reset(); // its queue ends before whoever it calls
        window.reset();
        CloudLibrary::TearDown();
    }

    // "label: value" of the rows that can be seen.
    QStringList rows() const {
        QStringList shown;
        for (const auto* row : window->findChildren<ValueRow*>())
            if (row->isVisible()) shown += row->accessibleName() + QStringLiteral(": ") + row->value();
        return shown;
    }

    void openLegacy() {
        driver::click(*window, QStringLiteral("Legacy Data"));
        settle();
    }

    platform::ListView& list() const {
        return driver::waitFor<platform::ListView>(*window, QStringLiteral("Snippets"));
    }

    // Below the heading.
    QStringList legacyRows() const {
        QStringList shown;
        const auto& model = *list().model();
        for (int row = 1; row < model.rowCount(); ++row) {
            const auto index = model.index(row, 0);
            shown += index.data().toString() + u'/' + index.data(platform::ListView::DetailRole).toString();
        }
        return shown;
    }

    QAbstractButton* migrateButton() const {
        return driver::find<QAbstractButton>(*window, QStringLiteral("Migrate Data"));
    }

    std::unique_ptr<SnippetNavigationController> window;
};

TEST_F(DataStatusTest, BeforeTheMigrationThePageSaysHowFarItIs) {
    open();
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("Migration Started: False"),
                                   QStringLiteral("Migration Complete: False"),
                                   QStringLiteral("Legacy Record Count: 0"), QStringLiteral("Snippets: 0"),
                                   QStringLiteral("Tags: 0"), QStringLiteral("Folders: 0")}));
    migrator().foundMigrationRecord().set(true);
    EXPECT_TRUE(rows().contains(QStringLiteral("Migration Started: True")));
    // The flag has no notification of its own, and is read with the next word of the migrator.
    UserSettings::shared().snippetsMigrated.set(true);
    migrator().legacyCloudKitRecordCount().set(1234);
    EXPECT_EQ(
        rows().first(3),
        (QStringList{QStringLiteral("Data Store Version: CKC-2"), QStringLiteral("Migration Complete: True"),
                     QStringLiteral("Legacy Record Count: ") + QLocale().toString(1234)}));
}

TEST_F(DataStatusTest, TheCountsFollowTheLibrary) {
    open();
    const auto snippet =
        Snippet::create(QStringLiteral("a"), {}, QStringLiteral(""), QStringLiteral("swift"));
    Snippet::create(QStringLiteral("b"), {}, QStringLiteral(""), QStringLiteral("swift"));
    context().insert(Tag::create(QStringLiteral("t"), 0, QDateTime::currentDateTime()));
    CoreDataStack::shared().saveContext();
    turn();
    EXPECT_EQ(rows().last(3), (QStringList{QStringLiteral("Snippets: 2"), QStringLiteral("Tags: 1"),
                                           QStringLiteral("Folders: 0")}));
    context().deleteObject(*snippet);
    CoreDataStack::shared().saveContext();
    turn();
    EXPECT_TRUE(rows().contains(QStringLiteral("Snippets: 1")));
}

TEST_F(DataStatusTest, LegacySnippetsAreBroughtOverOnceAVisit) {
    cloud->addZone(zone);
    addLegacySnippet(QStringLiteral("Old"));
    addRecord(QStringLiteral("Snippet"), QStringLiteral("Snippet.bare"), {}); // tells nothing of itself
    open();
    openLegacy();
    EXPECT_THAT(legacyRows(),
                ::testing::UnorderedElementsAre(QStringLiteral("Old/swift"), QStringLiteral("/")));
    EXPECT_EQ(count<Snippet>(), 0U) << "they belong to no context yet";

    const QPointer button = migrateButton();
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(button->isVisible());
    EXPECT_EQ(count<Snippet>(), 2U);
    EXPECT_FALSE(context().hasChanges()) << "and they are saved";

    window->popViewController();
    turn();
    EXPECT_TRUE(rows().contains(QStringLiteral("Snippets: 2")));
    openLegacy();
    driver::click(*window, QStringLiteral("Migrate Data"));
    EXPECT_EQ(count<Snippet>(), 4U) << "as the screen warns";
}

TEST_F(DataStatusTest, WithoutLegacySnippetsTheButtonDoesNothingUseful) {
    cloud->addZone(zone);
    open();
    openLegacy();
    EXPECT_EQ(legacyRows(), QStringList());
    ASSERT_NE(migrateButton(), nullptr);
    driver::click(*window, QStringLiteral("Migrate Data"));
    EXPECT_EQ(migrateButton(), nullptr);
    EXPECT_EQ(count<Snippet>(), 0U);
}

TEST_F(DataStatusTest, AnswersThatComeAfterTheVisitAreDropped) {
    cloud->addZone(zone);
    addLegacySnippet(QStringLiteral("Old"));
    open();
    driver::click(*window, QStringLiteral("Legacy Data"));
    window.reset();
    settle();
    EXPECT_EQ(count<Snippet>(), 0U);
}

TEST_F(DataStatusTest, InALowWindowTheListKeepsItsHalf) {
    cloud->addZone(zone);
    for (int i = 0; i < 100; ++i)
        addLegacySnippet(QStringLiteral("Old %1").arg(i));
    open({320, 400});
    openLegacy();
    EXPECT_GE(list().height(), window->topViewController()->height() / 2);
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().model()->index(100, 0))));
}

} // namespace
