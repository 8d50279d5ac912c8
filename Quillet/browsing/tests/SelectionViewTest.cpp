#include "Quillet/browsing/ColorCircle.h"
#include "Quillet/browsing/FolderSelectionView.h"
#include "Quillet/browsing/SelectionNavigationController.h"
#include "Quillet/browsing/TagSelectionView.h"
#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

using namespace quillet;
using platform::ListView;

namespace {

// The sheets over a window, of tags and of folders.
class SelectionViewTest : public TemporaryLibrary {
protected:
    void SetUp() override {
        window.resize(1000, 700);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void openTags(const std::shared_ptr<Snippet>& of, std::span<const TagColor> colors = tagColors) {
        present(std::make_unique<TagSelectionView>(of, colors));
    }

    void openFolders(const std::shared_ptr<Snippet>& of) {
        present(std::make_unique<FolderSelectionView>(of, tagColors));
    }

    void present(std::unique_ptr<SelectionView> view) {
        SelectionNavigationController::presentSheet(window, std::move(view), [this] { ++closings; });
        ASSERT_TRUE(QTest::qWaitFor([this] { return sheet() != nullptr; }));
    }

    SelectionNavigationController* sheet() const {
        return static_cast<SelectionNavigationController*>(window.presentedViewController());
    }

    ListView& list() const { return *sheet()->viewControllers().front()->findChild<ListView*>(); }

    QString top() const { return sheet()->topViewController()->title(); }

    QStringList rows() const {
        QStringList titles;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            titles += list().model()->index(row, 0).data().toString();
        return titles;
    }

    QVariant data(const QString& title, int role) const {
        return driver::findRow(*list().model(), title).data(role);
    }

    bool isChecked(const QString& title) const {
        return data(title, ListView::AccessoryRole).toInt() ==
               static_cast<int>(ListView::Accessory::Checkmark);
    }

    static void save() {
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        turn();
    }

    std::shared_ptr<Snippet> snippet = Snippet::create(QStringLiteral("s"), {}, QStringLiteral("c"), {});
    platform::ViewController window;
    int closings = 0;
};

TEST_F(SelectionViewTest, ShowsTheWayToTheFormAHeadingAndTheExistingOnes) {
    Tag::create(QStringLiteral("red"), 6, {});
    Folder::create(QStringLiteral("work"), {});
    save();
    openTags(snippet);
    EXPECT_EQ(top(), QStringLiteral("Tags"));
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("New Tag"), QStringLiteral("Existing Tags"),
                                   QStringLiteral("red")}));
    EXPECT_EQ(data(QStringLiteral("red"), ListView::SymbolRole), QStringLiteral("tag.fill"));
    EXPECT_EQ(data(QStringLiteral("red"), ListView::TintRole), static_cast<int>(platform::Asset::SystemRed));
    driver::click(*sheet(), QStringLiteral("Close"));
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(sheet(), nullptr);

    openFolders(snippet);
    EXPECT_EQ(top(), QStringLiteral("Folders"));
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("New Folder"), QStringLiteral("Existing Folders"),
                                   QStringLiteral("work")}));
    EXPECT_EQ(data(QStringLiteral("work"), ListView::SymbolRole), QStringLiteral("folder.fill"));
}

TEST_F(SelectionViewTest, EscapeLeavesTheSheetAsItsButtonDoesAndTheFocusGoesBack) {
    QLineEdit field(&window);
    field.show();
    field.setFocus();
    openTags(snippet);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return field.hasFocus(); }));
}

TEST_F(SelectionViewTest, APressOnARowTogglesAndSavesNothing) {
    Tag::create(QStringLiteral("a"), 0, {});
    Tag::create(QStringLiteral("b"), 0, {});
    save();
    openTags(snippet);
    driver::clickRow(list(), QStringLiteral("a"));
    driver::clickRow(list(), QStringLiteral("b"));
    EXPECT_TRUE(isChecked(QStringLiteral("a")));
    EXPECT_TRUE(isChecked(QStringLiteral("b")));
    driver::clickRow(list(), QStringLiteral("a"));
    EXPECT_FALSE(isChecked(QStringLiteral("a")));
    EXPECT_EQ(snippet->toMany(Snippet::Tags).size(), 1U);
    EXPECT_TRUE(context().hasChanges());
}

TEST_F(SelectionViewTest, OneFolderAtMostHoldsASnippet) {
    Folder::create(QStringLiteral("a"), {});
    Folder::create(QStringLiteral("b"), {});
    save();
    openFolders(snippet);
    driver::clickRow(list(), QStringLiteral("a"));
    driver::clickRow(list(), QStringLiteral("b"));
    EXPECT_FALSE(isChecked(QStringLiteral("a")));
    EXPECT_TRUE(isChecked(QStringLiteral("b")));
    EXPECT_TRUE(context().hasChanges());
    driver::clickRow(list(), QStringLiteral("b"));
    EXPECT_EQ(snippet->folder(), nullptr);
}

TEST_F(SelectionViewTest, WithoutASnippetNothingIsCheckedAndAPressDoesNothing) {
    const auto tag = Tag::create(QStringLiteral("a"), 0, {});
    snippet->addToMany(Snippet::Tags, *tag);
    save();
    openTags(nullptr);
    EXPECT_FALSE(isChecked(QStringLiteral("a")));
    driver::clickRow(list(), QStringLiteral("a"));
    EXPECT_FALSE(isChecked(QStringLiteral("a")));
    EXPECT_TRUE(snippet->toMany(Snippet::Tags).contains(tag.get()));
}

TEST_F(SelectionViewTest, AColorIndexBeyondTheListDrawsNoColour) {
    for (const int index : {-1, 1, 10})
        Tag::create(QString::number(index), static_cast<qint16>(index), {});
    save();
    openTags(snippet, std::span(tagColors).first(1));
    for (const int index : {-1, 1, 10})
        EXPECT_EQ(data(QString::number(index), ListView::TintRole),
                  static_cast<int>(platform::Asset::TextSecondary));
}

TEST_F(SelectionViewTest, RowsAreDeletedByTheMenuAndByTheKeyAndTheSnippetsStay) {
    const auto tag = Tag::create(QStringLiteral("a"), 0, {});
    Tag::create(QStringLiteral("b"), 0, {});
    Tag::create(QStringLiteral("c"), 0, {});
    snippet->addToMany(Snippet::Tags, *tag);
    save();
    openTags(snippet);
    EXPECT_FALSE(list().contextMenu(driver::findRow(*list().model(), QStringLiteral("New Tag"))));
    EXPECT_TRUE(list().swipeActions(driver::findRow(*list().model(), QStringLiteral("New Tag"))).empty());
    auto* menu = driver::openContextMenu(list(), driver::findRow(*list().model(), QStringLiteral("a")));
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(driver::titlesOf(*menu), QStringList{QStringLiteral("Delete")});
    driver::choose(*menu, QStringLiteral("Delete"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows().size() == 4; }));
    EXPECT_TRUE(snippet->toMany(Snippet::Tags).isEmpty());

    list().setCurrentIndex(driver::findRow(*list().model(), QStringLiteral("b")));
    QTest::keyClick(&list(), Qt::Key_Delete);
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows().size() == 3; }));
    EXPECT_EQ(list().currentIndex().data(), QStringLiteral("c")) << "the next one takes its place";
    const auto swipe = list().swipeActions(list().currentIndex());
    ASSERT_EQ(swipe.size(), 1U);
    EXPECT_EQ(swipe[0].title, QStringLiteral("Delete"));
    swipe[0].handler();
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows().size() == 2; }));
    EXPECT_EQ(count<Snippet>(), 1U);
}

TEST_F(SelectionViewTest, ANewTagIsSavedAssignedAndCheckedWhenTheListReturns) {
    save();
    openTags(snippet);
    driver::clickRow(list(), QStringLiteral("New Tag"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return top() == QStringLiteral("New Tag"); }));
    auto& name = driver::waitFor<QLineEdit>(*sheet(), QStringLiteral("Name"));
    EXPECT_EQ(name.placeholderText(), QStringLiteral("Name"));
    QTest::keyClicks(&name, QStringLiteral(" ")); // a blank is a name
    driver::click(*sheet(), QStringLiteral("Purple"));
    ::testing::internal::CaptureStdout();
    driver::click(*sheet(), QStringLiteral("Save"));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "💾 Attempted to save due to: Added Tag\n💾 actually saved: Added Tag\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return top() == QStringLiteral("Tags") && rows().size() == 3; }));
    EXPECT_TRUE(isChecked(QStringLiteral(" ")));
    const auto& tag = static_cast<const Tag&>(**snippet->toMany(Snippet::Tags).begin());
    EXPECT_EQ(tag.colorIndex(), 3);
    EXPECT_TRUE(context().hasChanges()) << "the assignment waits for the sheet to close";
}

TEST_F(SelectionViewTest, BothFormsRefuseAnEmptyNameInTheSameWords) {
    const auto refuses = [this](const QString& newItem) {
        driver::clickRow(list(), newItem);
        QTest::keyClick(&driver::waitFor<QLineEdit>(*sheet(), QStringLiteral("Name")), Qt::Key_Return);
        driver::waitFor<QWidget>(window, QStringLiteral("Oops!"));
        driver::waitFor<QWidget>(window, QStringLiteral("You need a name to save a tag."));
        driver::click(window, QStringLiteral("Dismiss"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !driver::find<QWidget>(window, QStringLiteral("Oops!")); }));
        EXPECT_EQ(top(), newItem);
    };
    openTags(nullptr);
    refuses(QStringLiteral("New Tag"));
    sheet()->cancelPresentation(); // from the form to the list, then out of it
    EXPECT_EQ(top(), QStringLiteral("Tags"));
    EXPECT_EQ(closings, 0);
    sheet()->cancelPresentation();
    EXPECT_EQ(closings, 1);
    openFolders(nullptr);
    refuses(QStringLiteral("New Folder"));
    EXPECT_EQ(count<Tag>() + count<Folder>(), 0U);
}

TEST_F(SelectionViewTest, ANewFolderTakesTheSnippetIn) {
    save();
    openFolders(snippet);
    driver::clickRow(list(), QStringLiteral("New Folder"));
    QTest::keyClicks(&driver::waitFor<QLineEdit>(*sheet(), QStringLiteral("Name")), QStringLiteral("work\r"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return top() == QStringLiteral("Folders") && rows().size() == 3; }));
    ASSERT_NE(snippet->folder(), nullptr);
    EXPECT_EQ(snippet->folder()->title(), QStringLiteral("work"));
    EXPECT_TRUE(isChecked(QStringLiteral("work")));
}

TEST_F(SelectionViewTest, TheColoursAreTenNamedTargetsAndArrowsMoveBetweenThem) {
    openTags(nullptr);
    driver::clickRow(list(), QStringLiteral("New Tag"));
    driver::waitFor<QLineEdit>(*sheet(), QStringLiteral("Name"));
    const auto circles = sheet()->findChildren<ColorCircle*>();
    ASSERT_EQ(circles.size(), 10);
    for (qsizetype index = 0; index < circles.size(); ++index) {
        EXPECT_EQ(circles[index]->accessibleName(), tagColors.at(static_cast<std::size_t>(index)).name);
        EXPECT_GE(circles[index]->width(), 44);
        EXPECT_GE(circles[index]->height(), 44);
        EXPECT_EQ(circles[index]->isChecked(), index == 0);
    }
    circles[0]->setFocus();
    QTest::keyClick(circles[0], Qt::Key_Right);
    QTest::keyClick(circles[1], Qt::Key_Right);
    EXPECT_TRUE(circles[2]->hasFocus());
    EXPECT_TRUE(circles[2]->isChecked());
    EXPECT_FALSE(circles[0]->isChecked());
}

TEST_F(SelectionViewTest, WhatHappensElsewhereShows) {
    Tag::create(QStringLiteral("a"), 0, {});
    save();
    openTags(snippet);
    CoreDataStack other(directory);
    const auto theirs = [&other](const QString& entity) {
        return other.viewContext().fetch({entity, {}, {}, {}}).at(0);
    };
    theirs(QStringLiteral("Tag"))->setValue(Tag::Title, QStringLiteral("renamed"));
    theirs(QStringLiteral("Snippet"))->addToMany(Snippet::Tags, *theirs(QStringLiteral("Tag")));
    other.save(SaveReason::AddedTag);
    ASSERT_TRUE(context().mergeChanges());
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows().contains(QStringLiteral("renamed")); }));
    EXPECT_TRUE(isChecked(QStringLiteral("renamed")));
}

} // namespace
