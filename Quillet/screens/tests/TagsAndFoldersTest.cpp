#include "Quillet/browsing/SelectionNavigationController.h"
#include "Quillet/browsing/SnippetList.h"
#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "Quillet/screens/SnippetRootViewController.h"
#include "Quillet/screens/editor/SnippetViewController.h"

using namespace quillet;

namespace {

// Tags and folders from the window's root: who opens the sheets, and what closing them saves.
class TagsAndFolders : public TemporaryLibrary {
protected:
    void SetUp() override {
        snippet = Snippet::create(QStringLiteral("one"), {}, QStringLiteral("text"), QStringLiteral("swift"));
        tag = Tag::create(QStringLiteral("red"), 6, {});
        folder = Folder::create(QStringLiteral("work"), {});
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        window = SnippetRootViewController::create();
        window->resize(1100, 700);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        driver::clickRow(list(), QStringLiteral("Languages"));
        driver::clickRow(list(), QStringLiteral("swift"));
    }

    SnippetList& list() const { return *window->findChild<SnippetList*>(); }

    SnippetViewController& editor() const { return *window->findChild<SnippetViewController*>(); }

    QAbstractButton& tagButton() const {
        for (auto* button : editor().findChildren<QAbstractButton*>())
            if (button->accessibleName() == QStringLiteral("Tags")) return *button;
        qFatal("no tag button");
    }

    QModelIndex row() const { return driver::findRow(*list().model(), QStringLiteral("one")); }

    static platform::ListView& listOf(const platform::ViewController& sheet) {
        return *sheet.findChild<platform::ListView*>();
    }

    // The number of tags and the folder's title that another program would find.
    std::pair<std::size_t, QString> onDisk() const {
        CoreDataStack reopened(directory);
        const auto found = reopened.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}).at(0);
        const auto* in = static_cast<const Snippet&>(*found).folder();
        return {found->toMany(Snippet::Tags).size(), in ? in->title() : QString()};
    }

    std::shared_ptr<Snippet> snippet;
    std::shared_ptr<Tag> tag;
    std::shared_ptr<Folder> folder;
    std::unique_ptr<SnippetRootViewController> window;
};

TEST_F(TagsAndFolders, TheTagSheetSavesWhenItClosesAlsoByEscape) {
    EXPECT_FALSE(tagButton().isVisible()) << "there is nothing to tag";
    driver::clickRow(list(), row());
    for (const bool byEscape : {false, true}) {
        tagButton().setFocus();
        QTest::keyClick(&tagButton(), Qt::Key_Space);
        ASSERT_NE(editor().presentedViewController(), nullptr);
        driver::clickRow(listOf(*editor().presentedViewController()), QStringLiteral("red"));
        EXPECT_EQ(onDisk().first, byEscape ? 1U : 0U) << "not before";
        ::testing::internal::CaptureStdout();
        if (byEscape)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else
            driver::click(*window, QStringLiteral("Close"));
        EXPECT_EQ(::testing::internal::GetCapturedStdout(),
                  "💾 Attempted to save due to: Added Tag\n💾 actually saved: Added Tag\n");
        EXPECT_EQ(onDisk().first, byEscape ? 0U : 1U);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !editor().presentedViewController(); }));
        EXPECT_TRUE(tagButton().hasFocus()) << "the focus is back where it was";
    }
}

TEST_F(TagsAndFolders, AFolderRestsInTheContextUntilTheNextSave) {
    driver::choose(*driver::openContextMenu(list(), row()), QStringLiteral("Add to folder"));
    ASSERT_NE(window->presentedViewController(), nullptr);
    driver::clickRow(listOf(*window->presentedViewController()), QStringLiteral("work"));
    driver::click(*window, QStringLiteral("Close"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->presentedViewController(); }));
    EXPECT_EQ(snippet->folder(), folder.get());
    EXPECT_EQ(onDisk().second, QString());
    CoreDataStack::shared().save(SaveReason::EditedItem);
    EXPECT_EQ(onDisk().second, QStringLiteral("work"));
}

TEST_F(TagsAndFolders, DeletingTheOpenSnippetEmptiesTheEditor) {
    driver::clickRow(list(), row());
    EXPECT_EQ(editor().snippet(), snippet);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_EQ(editor().snippet(), nullptr);
    EXPECT_TRUE(editor().textView().text().startsWith(QStringLiteral("Enter text here")));
    EXPECT_FALSE(tagButton().isVisible());
}

} // namespace
