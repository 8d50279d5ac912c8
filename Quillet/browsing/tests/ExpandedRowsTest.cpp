#include "Quillet/browsing/ExpandedRows.h"

#include "Quillet/core/tests/TemporaryLibrary.h"

using namespace quillet;

namespace {

class ExpandedRowsTest : public TemporaryLibrary {
protected:
    static ListItemType language(const QString& name) { return LanguageHeader{name, {}}; }

    ExpandedRows rows;
};

TEST_F(ExpandedRowsTest, TagsAndFoldersAreKnownByTheirIdsAndLanguagesByTheirNames) {
    const auto tag = Tag::create(QStringLiteral("same"), 0, {});
    const auto other = Tag::create(QStringLiteral("same"), 0, {});
    const auto folder = Folder::create(QStringLiteral("same"), {});
    rows.set(tag, true);
    rows.set(language(QStringLiteral("swift")), true);
    EXPECT_TRUE(rows.contains(tag));
    EXPECT_FALSE(rows.contains(other));
    EXPECT_FALSE(rows.contains(folder));
    EXPECT_TRUE(rows.contains(language(QStringLiteral("swift"))));
    EXPECT_FALSE(rows.contains(language(QStringLiteral("c"))));

    const auto again = Tag::create(QStringLiteral("came back"), 0, {});
    again->setValue(Tag::Id, tag->id());
    EXPECT_TRUE(rows.contains(again));
    rows.set(again, false);
    EXPECT_FALSE(rows.contains(tag));
}

TEST_F(ExpandedRowsTest, ALanguageIsOpenWhateverItsSnippets) {
    rows.set(language(QStringLiteral("swift")), true);
    const auto snippet = Snippet::create({}, {}, {}, QStringLiteral("swift"));
    EXPECT_TRUE(rows.contains(LanguageHeader{QStringLiteral("swift"), {snippet}}));
}

TEST_F(ExpandedRowsTest, ClosingRemovesTheFirstEqualEntryAndASnippetIsNeverOpen) {
    const auto folder = Folder::create(QStringLiteral("f"), {});
    rows.set(folder, true);
    rows.set(folder, true);
    rows.set(folder, false);
    EXPECT_TRUE(rows.contains(folder));
    rows.set(folder, false);
    rows.set(folder, false);
    EXPECT_FALSE(rows.contains(folder));
    const auto snippet = Snippet::create({}, {}, {}, {});
    rows.set(snippet, true);
    EXPECT_FALSE(rows.contains(snippet));
}

} // namespace
