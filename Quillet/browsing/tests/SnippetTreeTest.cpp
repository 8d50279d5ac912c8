#include "Quillet/browsing/SnippetTree.h"

#include "Quillet/browsing/TagColors.h"
#include "Quillet/core/tests/TemporaryLibrary.h"
#include "platform/screens/list/ListView.h"

#include <QtCore/QMimeData>
#include <QtTest/QAbstractItemModelTester>

#include <memory>

using namespace quillet;
using platform::Asset;
using platform::ListView;

namespace {

class SnippetTreeTest : public TemporaryLibrary {
protected:
    SnippetTreeTest() {
        snippet =
            Snippet::create(QStringLiteral("s"), {}, QStringLiteral("let x = 1"), QStringLiteral("swift"));
        tag = Tag::create(QStringLiteral("t"), 3, {});
        Folder::create(QStringLiteral("f"), {});
        snippet->addToMany(Snippet::Tags, *tag);
        save();
    }

    static void save() {
        CoreDataStack::shared().save(SaveReason::AddedSnippet);
        turn();
    }

    static QModelIndex at(const SnippetTree& tree, std::initializer_list<int> path) {
        QModelIndex index;
        for (const int row : path)
            index = tree.index(row, 0, index);
        return index;
    }

    std::shared_ptr<Snippet> snippet;
    std::shared_ptr<Tag> tag;
};

const std::initializer_list<int> underTag{SnippetTree::TagGroup, 0, 0};
const std::initializer_list<int> underLanguage{SnippetTree::LanguageGroup, 0, 0};

TEST_F(SnippetTreeTest, SaysOfEachRowWhatTheListAsks) {
    SnippetListModel model;
    SnippetTree tree(model);
    const QAbstractItemModelTester tester(&tree, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto tintOf = [](const QModelIndex& index) {
        return static_cast<Asset>(index.data(ListView::TintRole).toInt());
    };
    const QModelIndex folders = at(tree, {SnippetTree::FolderGroup});
    EXPECT_EQ(folders.data().toString(), QStringLiteral("Folders"));
    EXPECT_EQ(folders.data(ListView::ButtonSymbolRole).toString(), QStringLiteral("folder.badge.plus"));
    EXPECT_EQ(at(tree, {SnippetTree::TagGroup}).data(ListView::ButtonNameRole).toString(),
              QStringLiteral("Edit Tags"));
    EXPECT_TRUE(at(tree, {SnippetTree::LanguageGroup}).data(ListView::ButtonSymbolRole).toString().isEmpty());
    const QModelIndex folder = at(tree, {SnippetTree::FolderGroup, 0});
    EXPECT_TRUE(folder.data(ListView::GroupRole).toBool()); // though nothing is in it
    EXPECT_FALSE(tree.hasChildren(folder));
    EXPECT_EQ(folder.data(ListView::DetailRole).toString(), QStringLiteral("0"));
    EXPECT_EQ(tintOf(at(tree, {SnippetTree::TagGroup, 0})), tagColor(3));
    EXPECT_EQ(tintOf(at(tree, underTag)), tagColor(3));
    EXPECT_EQ(tintOf(at(tree, underLanguage)), Asset::TextSecondary);
    EXPECT_EQ(at(tree, underTag).data().toString(), QStringLiteral("s"));
    EXPECT_EQ(tree.snippetAt(at(tree, underTag)), snippet);
    EXPECT_EQ(tree.itemAt(at(tree, {SnippetTree::TagGroup, 0}))->type(), ListItemType(tag));
    EXPECT_FALSE(tree.snippetAt(at(tree, {SnippetTree::TagGroup, 0})) || tree.itemAt(folders));
}

TEST_F(SnippetTreeTest, KeysTellRowsApartAndOutliveARebuild) {
    SnippetListModel model;
    const SnippetTree tree(model);
    const QString key = tree.keyOf(at(tree, underTag));
    EXPECT_NE(key, tree.keyOf(at(tree, underLanguage)));
    EXPECT_NE(key, tree.keyOf(at(tree, underTag).parent()));
    Snippet::create(QStringLiteral("a"), {}, {}, QStringLiteral("swift"))->addToMany(Snippet::Tags, *tag);
    save();
    EXPECT_EQ(tree.keyOf(at(tree, {SnippetTree::TagGroup, 0, 1})), key); // "a" comes before it now
    EXPECT_NE(tree.keyOf(at(tree, underTag)), key);
}

TEST_F(SnippetTreeTest, ALeafIsDraggedAsItsCode) {
    SnippetListModel model;
    const SnippetTree tree(model);
    EXPECT_TRUE(at(tree, underTag).flags() & Qt::ItemIsDragEnabled);
    const std::unique_ptr<QMimeData> data(tree.mimeData({at(tree, underTag)}));
    ASSERT_TRUE(data);
    EXPECT_EQ(data->text(), QStringLiteral("let x = 1"));
    EXPECT_FALSE(at(tree, underTag).parent().flags() & Qt::ItemIsDragEnabled);
    EXPECT_EQ(tree.mimeData({at(tree, {SnippetTree::TagGroup})}), nullptr);
}

// What synchronised it may have come from a newer program. The sheet of tags, where it can be deleted, has to
// be within reach.
TEST_F(SnippetTreeTest, ATagWithoutAColourStopsTheProgramWhenItsRowIsDrawn) {
    tag->setValue(Tag::ColorIndex, 10);
    SnippetListModel model;
    const SnippetTree tree(model);
    const QModelIndex row = at(tree, {SnippetTree::TagGroup, 0});
    EXPECT_EQ(row.data().toString(), tag->title());
    EXPECT_DEATH(row.data(ListView::TintRole), "colorIndex");
}

} // namespace
