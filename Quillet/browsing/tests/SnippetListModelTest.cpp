#include "Quillet/browsing/SnippetListModel.h"

#include "Quillet/browsing/TagColors.h"
#include "Quillet/core/UserSettings.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

using namespace quillet;

namespace {

class SnippetListModelTest : public TemporaryLibrary {
protected:
    static std::shared_ptr<Snippet> add(const QString& title,
                                        const QString& language = QStringLiteral("swift")) {
        return Snippet::create(title, {}, QStringLiteral("code"), language);
    }

    static void save() {
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        turn();
    }

    static QStringList leavesOf(const ListItem& group) {
        QStringList titles;
        for (const auto& leaf : *group.children())
            titles += std::get<std::shared_ptr<Snippet>>(leaf->type())->title();
        return titles;
    }

    static QString languageOf(const ListItem& group) {
        return std::get<LanguageHeader>(group.type()).language;
    }
};

TEST_F(SnippetListModelTest, EmptyGroupsStayAndAreNoLeaves) {
    Folder::create(QStringLiteral("f"), {});
    Folder::create(QStringLiteral("g"), {});
    Tag::create(QStringLiteral("t"), 0, {});
    save();
    const SnippetListModel model;
    EXPECT_TRUE(model.languageItems.value().empty());
    ASSERT_EQ(model.folderItems.value().size(), 2U);
    ASSERT_EQ(model.tagItems.value().size(), 1U);
    for (const auto& folder : model.folderItems.value()) {
        ASSERT_TRUE(folder->children());
        EXPECT_TRUE(folder->children()->empty());
    }
}

TEST_F(SnippetListModelTest, ASnippetStandsUnderItsLanguageItsFolderAndEachOfItsTags) {
    const auto snippet = add(QStringLiteral("s"));
    const auto first = Tag::create(QStringLiteral("A"), 0, {});
    const auto second = Tag::create(QStringLiteral("B"), 1, {});
    const auto folder = Folder::create(QStringLiteral("F"), {});
    snippet->addToMany(Snippet::Tags, *first);
    snippet->addToMany(Snippet::Tags, *second);
    snippet->setToOne(Snippet::InFolder, folder.get());
    const SnippetListModel model;
    save();
    int leaves = 0;
    for (const auto* items : {&model.tagItems, &model.folderItems, &model.languageItems})
        for (const auto& group : items->value())
            leaves += static_cast<int>(leavesOf(*group).size());
    EXPECT_EQ(leaves, 4);
    EXPECT_EQ(languageOf(*model.languageItems.value().at(0)), QStringLiteral("swift"));
}

TEST_F(SnippetListModelTest, ASnippetWithoutALanguageLeavesAnEmptyGroupInFront) {
    add(QStringLiteral("s"));
    auto bare = std::make_shared<Snippet>();
    context().insert(bare);
    bare->setTitle(QStringLiteral("bare"));
    bare->setCode(QStringLiteral("x"));
    save();
    const SnippetListModel model;
    ASSERT_EQ(model.languageItems.value().size(), 2U);
    EXPECT_EQ(languageOf(*model.languageItems.value()[0]), QString());
    EXPECT_TRUE(leavesOf(*model.languageItems.value()[0]).isEmpty());
    EXPECT_EQ(leavesOf(*model.languageItems.value()[1]), QStringList{QStringLiteral("s")});
}

TEST_F(SnippetListModelTest, TitlesSortByCodePointsAndLanguagesToo) {
    for (const char* title : {"b", "A", "a", "😀", "\xEF\xBD\x81", "é"})
        add(QString::fromUtf8(title));
    add(QStringLiteral("x"), QStringLiteral("c"));
    save();
    const SnippetListModel model;
    EXPECT_EQ(languageOf(*model.languageItems.value()[0]), QStringLiteral("c"));
    // An astral character comes behind U+FF41, though its code units come before; é is e with an accent.
    EXPECT_EQ(
        leavesOf(*model.languageItems.value()[1]),
        (QStringList{QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("b"), QString::fromUtf8("é"),
                     QString::fromUtf8("\xEF\xBD\x81"), QString::fromUtf8("😀")}));
}

TEST_F(SnippetListModelTest, TheOrderByDateTakesHoldAtTheNextRebuild) {
    const auto old = add(QStringLiteral("a"));
    old->setValue(Snippet::LastUpdate, QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
    const auto newer = add(QStringLiteral("b"));
    newer->setValue(Snippet::LastUpdate, QDateTime::fromMSecsSinceEpoch(1000, Qt::UTC));
    add(QStringLiteral("c")); // without a date: modified now
    add(QStringLiteral("d"));
    save();
    SnippetListModel model;
    UserSettings::shared().sortIndex.set(0);
    EXPECT_EQ(leavesOf(*model.languageItems.value()[0]).first(), QStringLiteral("a"));
    model.rebuild(model.snippets(), model.folders(), model.tags());
    EXPECT_EQ(
        leavesOf(*model.languageItems.value()[0]),
        (QStringList{QStringLiteral("c"), QStringLiteral("d"), QStringLiteral("b"), QStringLiteral("a")}));
}

TEST_F(SnippetListModelTest, FollowsTheLibraryAndKeepsListItemsEmpty) {
    SnippetListModel model;
    const auto snippet = add(QStringLiteral("s"));
    save();
    ASSERT_EQ(model.languageItems.value().size(), 1U);
    model.snippetService().remove(*snippet);
    turn();
    EXPECT_TRUE(model.languageItems.value().empty());
    EXPECT_TRUE(model.listItems.value().empty());
}

TEST_F(SnippetListModelTest, PublishesTagsThenFoldersThenLanguages) {
    SnippetListModel model;
    QStringList published;
    std::vector<platform::Subscription> subscriptions;
    const auto note = [&](auto& items, const char* name) {
        subscriptions.push_back(items.observeChanges(
            [&published, name](const auto&) { published += QString::fromLatin1(name); }));
    };
    note(model.languageItems, "languages");
    note(model.folderItems, "folders");
    note(model.tagItems, "tags");
    model.rebuild({}, {}, {});
    EXPECT_EQ(published,
              (QStringList{QStringLiteral("tags"), QStringLiteral("folders"), QStringLiteral("languages")}));
}

TEST_F(SnippetListModelTest, RowsAreKnownByWhatTheyAreAndNotByTheirChildren) {
    const auto snippet = add(QStringLiteral("s"));
    const auto other = add(QStringLiteral("s"));
    const auto tag = Tag::create(QStringLiteral("s"), 0, {});
    const auto hashOf = [](const ListItem& item) { return qHash(item); };
    const ListItem leaf(snippet);
    const ListItem group(snippet, ListItem::Children{});
    EXPECT_EQ(leaf, group);
    EXPECT_EQ(hashOf(leaf), hashOf(group));
    EXPECT_NE(leaf, ListItem(other)); // by identity, not by title
    EXPECT_NE(hashOf(leaf), hashOf(ListItem(other)));
    EXPECT_NE(leaf, ListItem(tag));
    const ListItem header(LanguageHeader{QStringLiteral("c"), {snippet}});
    EXPECT_EQ(hashOf(header), hashOf(ListItem(LanguageHeader{QStringLiteral("c"), {snippet}})));
    EXPECT_NE(header, ListItem(LanguageHeader{QStringLiteral("c"), {other}}));
    const ListItem section(SectionHeader{QStringLiteral("c"), QString()});
    EXPECT_NE(section, header);
    EXPECT_NE(hashOf(section), hashOf(ListItem(LanguageHeader{QStringLiteral("c"), {}})));
}

TEST(TagColorsDeathTest, AnIndexOutsideTheTableStopsTheProgram) {
    EXPECT_EQ(tagColor(0), platform::Asset::KindaGreen);
    EXPECT_EQ(tagColor(9), platform::Asset::SystemBlack);
    EXPECT_DEATH(tagColor(-1), "colorIndex");
    EXPECT_DEATH(tagColor(10), "colorIndex");
}

} // namespace
