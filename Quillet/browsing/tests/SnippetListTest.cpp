#include "Quillet/browsing/SnippetList.h"

#include "Quillet/browsing/tests/ScreenDriver.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtGui/QClipboard>
#include <QtTest/QAbstractItemModelTester>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

using namespace quillet;
using platform::ListView;

namespace {

class SnippetListTest : public TemporaryLibrary {
protected:
    static std::shared_ptr<Snippet> add(const QString& title,
                                        const QString& language = QStringLiteral("swift")) {
        return Snippet::create(title, {}, QStringLiteral("code of ") + title, language);
    }

    static void save() {
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        turn();
    }

    void open(QSize size = {330, 700}) {
        save();
        model = std::make_unique<SnippetListModel>();
        list = new SnippetList(*model, window);
        (new QVBoxLayout(&window))->addWidget(list);
        list->onSelectSnippet = [this](const auto& snippet) { selected += snippet->title(); };
        list->onDeleteSnippet = [this](const auto& snippet) { deleted += snippet->title(); };
        list->onAddSnippetToFolder = [this](const auto& snippet) { filed += snippet->title(); };
        window.resize(size);
        window.show();
        window.activateWindow();
        list->setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QModelIndex row(const QString& title, const QModelIndex& under = {}) const {
        return driver::findRow(*list->model(), title, under);
    }

    void click(const QString& title) const { driver::clickRow(*list, title); }

    void openLanguage() const {
        click(QStringLiteral("Languages"));
        click(QStringLiteral("swift"));
    }

    QMenu& menuOf(const QString& title) const {
        auto* menu = driver::openContextMenu(*list, row(title));
        if (!menu) qFatal("no menu");
        return *menu;
    }

    bool isListed(const QString& title) const { return row(title).isValid(); }

    bool goes(const QString& title) const {
        return QTest::qWaitFor([&] { return !isListed(title); });
    }

    QString current() const { return list->currentIndex().data().toString(); }

    platform::ViewController window;
    std::unique_ptr<SnippetListModel> model;
    SnippetList* list = nullptr;
    QStringList selected;
    QStringList deleted;
    QStringList filed;
};

TEST_F(SnippetListTest, ThreeClosedGroupsWithTheirImagesAndButtons) {
    open();
    const QAbstractItemModelTester tester(list->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    ASSERT_EQ(list->model()->rowCount(), 3);
    const auto is = [&](int at, const QString& title, const QString& symbol, const QString& button) {
        const QModelIndex group = list->model()->index(at, 0);
        EXPECT_EQ(group.data(), title);
        EXPECT_EQ(group.data(ListView::SymbolRole), symbol);
        EXPECT_EQ(group.data(ListView::ButtonSymbolRole).toString(), button);
        EXPECT_FALSE(list->isOpen(group));
        EXPECT_FALSE(list->contextMenu(group));
        EXPECT_TRUE(list->swipeActions(group).empty());
    };
    is(0, QStringLiteral("Folders"), QStringLiteral("folder.fill"), QStringLiteral("folder.badge.plus"));
    is(1, QStringLiteral("Tags"), QStringLiteral("tag.fill"), QStringLiteral("tag.circle"));
    is(2, QStringLiteral("Languages"), QStringLiteral("doc.fill"), {});
}

TEST_F(SnippetListTest, HeaderButtonsOpenTheSheets) {
    open();
    int folders = 0;
    int tags = 0;
    list->onAddFolder = [&] { ++folders; };
    list->onEditTags = [&] { ++tags; };
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Tab); // to the button of the row
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(folders, 1);
    Q_EMIT list->buttonPressed(row(QStringLiteral("Tags")));
    EXPECT_EQ(tags, 1);
}

TEST_F(SnippetListTest, MembersAndLeavesHaveTheImagesAndColoursOfTheirGroup) {
    const auto snippet = add(QStringLiteral("one"));
    snippet->addToMany(Snippet::Tags, *Tag::create(QStringLiteral("red"), 6, {}));
    snippet->setToOne(Snippet::InFolder, Folder::create(QStringLiteral("work"), {}).get());
    open();
    const auto red = static_cast<int>(platform::Asset::SystemRed);
    const auto grey = static_cast<int>(platform::Asset::TextSecondary);
    EXPECT_EQ(row(QStringLiteral("red")).data(ListView::SymbolRole), QStringLiteral("tag.fill"));
    EXPECT_EQ(row(QStringLiteral("red")).data(ListView::TintRole), red);
    EXPECT_EQ(row(QStringLiteral("work")).data(ListView::SymbolRole), QStringLiteral("folder.fill"));
    EXPECT_EQ(row(QStringLiteral("swift")).data(ListView::TintRole), grey);
    for (const auto& [member, tint] : {std::pair(QStringLiteral("red"), red),
                                       {QStringLiteral("work"), grey},
                                       {QStringLiteral("swift"), grey}}) {
        const QModelIndex leaf = row(QStringLiteral("one"), row(member));
        EXPECT_EQ(leaf.data(ListView::SymbolRole), QStringLiteral("doc.text.fill"));
        EXPECT_EQ(leaf.data(ListView::TintRole), tint) << member.toStdString();
    }
}

TEST_F(SnippetListTest, RowsOpenByAClickAndStayOpenOverARebuild) {
    add(QStringLiteral("one"));
    open();
    openLanguage();
    click(QStringLiteral("one"));
    EXPECT_EQ(selected, QStringList{QStringLiteral("one")});
    EXPECT_EQ(list->selectedSnippet()->title(), QStringLiteral("one"));
    for (int i = 0; i < 20; ++i)
        add(QStringLiteral("more %1").arg(i), QStringLiteral("c"));
    save();
    EXPECT_TRUE(list->isOpen(row(QStringLiteral("Languages"))));
    EXPECT_TRUE(list->isOpen(row(QStringLiteral("swift"))));
    EXPECT_FALSE(list->isOpen(row(QStringLiteral("c"))));
    EXPECT_EQ(current(), QStringLiteral("one"));
    EXPECT_TRUE(list->selectionModel()->isSelected(row(QStringLiteral("one"))));
    click(QStringLiteral("swift"));
    EXPECT_FALSE(list->isOpen(row(QStringLiteral("swift"))));
}

TEST_F(SnippetListTest, KeysOpenAndChoose) {
    add(QStringLiteral("one"));
    open();
    list->setCurrentIndex(row(QStringLiteral("Languages")));
    for (const auto key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Return, Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(list, key);
    EXPECT_EQ(selected, QStringList{QStringLiteral("one")});
}

TEST_F(SnippetListTest, ASelectionFromOutsideOnlyClears) {
    const auto snippet = add(QStringLiteral("one"));
    open();
    openLanguage();
    click(QStringLiteral("one"));
    list->select(nullptr);
    EXPECT_TRUE(list->selectedSnippet());
    list->select(snippet);
    EXPECT_FALSE(list->selectedSnippet());
    EXPECT_FALSE(list->selectionModel()->hasSelection());
}

TEST_F(SnippetListTest, TheMenuOfASnippetCopiesDeletesAndFiles) {
    add(QStringLiteral("one"));
    open();
    openLanguage();
    QMenu& menu = menuOf(QStringLiteral("one"));
    EXPECT_EQ(driver::titlesOf(menu),
              (QStringList{QStringLiteral("Copy Snippet"), QStringLiteral("Delete Snippet"),
                           QStringLiteral("Add to folder")}));
    driver::choose(menu, QStringLiteral("Copy Snippet"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("code of one"));
    driver::choose(menuOf(QStringLiteral("one")), QStringLiteral("Add to folder"));
    EXPECT_EQ(filed, QStringList{QStringLiteral("one")});
    driver::choose(menuOf(QStringLiteral("one")), QStringLiteral("Delete Snippet"));
    EXPECT_EQ(deleted, QStringList{QStringLiteral("one")});
    EXPECT_TRUE(goes(QStringLiteral("one")));
    EXPECT_EQ(count<Snippet>(), 0U);
}

TEST_F(SnippetListTest, TheEntriesHaveTheirImages) {
    const auto snippet = add(QStringLiteral("one"));
    snippet->addToMany(Snippet::Tags, *Tag::create(QStringLiteral("t"), 0, {}));
    snippet->setToOne(Snippet::InFolder, Folder::create(QStringLiteral("f"), {}).get());
    open();
    const auto symbols = [this](const QModelIndex& of) {
        QStringList names;
        const auto menu = list->contextMenu(of);
        for (const auto& entry : menu ? menu->entries : std::vector<platform::Menu::Entry>())
            names += std::get<platform::MenuAction>(entry).symbol;
        return names;
    };
    EXPECT_EQ(symbols(row(QStringLiteral("one"))),
              (QStringList{QStringLiteral("doc"), QStringLiteral("trash"), QStringLiteral("folder.fill")}));
    EXPECT_EQ(symbols(row(QStringLiteral("t"))), QStringList{QStringLiteral("trash.fill")});
    EXPECT_EQ(symbols(row(QStringLiteral("f"))), QStringList{QStringLiteral("trash.fill")});
    EXPECT_TRUE(symbols(row(QStringLiteral("swift"))).isEmpty());
}

TEST_F(SnippetListTest, DeletingATagOrAFolderAsksFirst) {
    const auto snippet = add(QStringLiteral("one"));
    snippet->addToMany(Snippet::Tags, *Tag::create(QStringLiteral("red"), 6, {}));
    snippet->setToOne(Snippet::InFolder, Folder::create(QStringLiteral("work"), {}).get());
    open();
    const auto asks = [this](const QString& group, const QString& member, const QString& action,
                             const QString& question, const std::string& reason) {
        click(group);
        for (const auto& answer : {QStringLiteral("Cancel"), action}) {
            driver::choose(menuOf(member), action);
            driver::waitFor<QWidget>(window, question);
            ::testing::internal::CaptureStdout();
            driver::click(window, answer);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !window.presentedViewController(); }));
            EXPECT_TRUE(QTest::qWaitFor([&] { return isListed(member) == (answer != action); }));
            const std::string log = ::testing::internal::GetCapturedStdout();
            EXPECT_EQ(log, answer == action ? "💾 Attempted to save due to: " + reason +
                                                  "\n💾 actually saved: " + reason + "\n"
                                            : std::string());
        }
    };
    asks(QStringLiteral("Tags"), QStringLiteral("red"), QStringLiteral("Delete Tag"),
         QStringLiteral("Are you sure you want to delete red? This will leave your snippets, but delete the "
                        "containing tag."),
         "Deleted Tag");
    asks(QStringLiteral("Folders"), QStringLiteral("work"), QStringLiteral("Delete Folder"),
         QStringLiteral("Are you sure you want to delete work? This will leave your snippets, but delete the "
                        "containing folder."),
         "Deleted Folder");
    EXPECT_EQ(count<Snippet>(), 1U);
    EXPECT_EQ(count<Tag>() + count<Folder>(), 0U);
}

TEST_F(SnippetListTest, TheDeleteKeyAndASwipeDoWhatTheMenuDoes) {
    Tag::create(QStringLiteral("red"), 6, {});
    add(QStringLiteral("one"));
    add(QStringLiteral("two"));
    open();
    openLanguage();
    list->setCurrentIndex(row(QStringLiteral("one")));
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_TRUE(goes(QStringLiteral("one")));
    EXPECT_EQ(deleted, QStringList{QStringLiteral("one")});
    const auto swipe = list->swipeActions(row(QStringLiteral("two")));
    ASSERT_EQ(swipe.size(), 1U);
    EXPECT_EQ(swipe[0].title, QStringLiteral("Delete Snippet"));
    swipe[0].handler();
    EXPECT_TRUE(goes(QStringLiteral("two")));

    click(QStringLiteral("Tags"));
    list->setCurrentIndex(row(QStringLiteral("red")));
    QTest::keyClick(list, Qt::Key_Delete);
    driver::click(window, QStringLiteral("Delete Tag"));
    EXPECT_TRUE(goes(QStringLiteral("red")));
    list->setCurrentIndex(row(QStringLiteral("Languages")));
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_FALSE(window.presentedViewController());
}

TEST_F(SnippetListTest, TheNextRowIsCurrentAfterADeletionAndTheListStaysWhereItIs) {
    for (int i = 10; i < 50; ++i)
        add(QStringLiteral("s%1").arg(i));
    open({330, 300});
    openLanguage();
    const auto deleteRow = [this](const QString& title) {
        list->setCurrentIndex(row(title));
        QTest::keyClick(list, Qt::Key_Delete);
        ASSERT_TRUE(goes(title));
    };
    list->scrollTo(row(QStringLiteral("s30")), QAbstractItemView::PositionAtCenter);
    const int before = list->verticalScrollBar()->value();
    deleteRow(QStringLiteral("s30"));
    EXPECT_EQ(current(), QStringLiteral("s31"));
    EXPECT_EQ(list->verticalScrollBar()->value(), before);
    deleteRow(QStringLiteral("s49"));
    EXPECT_EQ(current(), QStringLiteral("s48")) << "the last one's place is the one above";
    EXPECT_TRUE(list->hasFocus());
    for (int i = 10; i < 49; ++i)
        if (isListed(QStringLiteral("s%1").arg(i))) deleteRow(QStringLiteral("s%1").arg(i));
    EXPECT_EQ(current(), QStringLiteral("Languages")) << "with the last snippet its language goes";
}

TEST_F(SnippetListTest, ASnippetGoesFromAllItsGroupsAtOnce) {
    const auto snippet = add(QStringLiteral("one"));
    snippet->addToMany(Snippet::Tags, *Tag::create(QStringLiteral("t"), 0, {}));
    snippet->setToOne(Snippet::InFolder, Folder::create(QStringLiteral("f"), {}).get());
    open();
    click(QStringLiteral("Tags"));
    click(QStringLiteral("t"));
    list->setCurrentIndex(row(QStringLiteral("one"), row(QStringLiteral("t"))));
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_TRUE(goes(QStringLiteral("one")));
    EXPECT_EQ(current(), QStringLiteral("t"));
}

TEST_F(SnippetListTest, TheSelectedSnippetStaysSelectedUnderItsNewLanguage) {
    const auto snippet = add(QStringLiteral("one"));
    add(QStringLiteral("two"));
    open();
    openLanguage();
    click(QStringLiteral("one"));
    snippet->setLanguage(QStringLiteral("c"));
    save();
    EXPECT_FALSE(list->selectionModel()->hasSelection()); // its language is closed
    list->setOpen(row(QStringLiteral("c")), true);
    add(QStringLiteral("three"));
    save();
    EXPECT_EQ(list->selectionModel()->selectedIndexes(), QModelIndexList{row(QStringLiteral("one"))});
}

} // namespace
