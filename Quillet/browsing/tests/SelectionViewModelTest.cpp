#include "Quillet/browsing/FolderSelectionViewModel.h"
#include "Quillet/browsing/TagSelectionViewModel.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

using namespace quillet;

namespace {

class SelectionViewModelTest : public TemporaryLibrary {
protected:
    static void save() {
        CoreDataStack::shared().save(SaveReason::AddedItem);
        turn();
    }

    std::shared_ptr<Snippet> snippet = Snippet::create(QStringLiteral("s"), {}, QStringLiteral("c"), {});
};

TEST_F(SelectionViewModelTest, FollowsTheLibrary) {
    Tag::create(QStringLiteral("first"), 2, {});
    save();
    TagSelectionViewModel model;
    ASSERT_EQ(model.items().value().size(), 1U);
    EXPECT_EQ(model.titleOf(*model.items().value()[0]), QStringLiteral("first"));
    EXPECT_EQ(model.colorIndexOf(*model.items().value()[0]), 2);

    CoreDataStack other(directory); // another program
    auto tag = std::make_shared<Tag>();
    other.viewContext().insert(tag);
    tag->setValue(Tag::Id, QUuid::createUuid());
    tag->setValue(Tag::Title, QStringLiteral("second"));
    tag->setValue(Tag::ColorIndex, 0);
    other.save(SaveReason::AddedTag);
    ASSERT_TRUE(context().mergeChanges());
    turn();
    EXPECT_EQ(model.items().value().size(), 2U);
    model.remove(*model.items().value()[0]);
    turn();
    ASSERT_EQ(model.items().value().size(), 1U);
    EXPECT_EQ(model.titleOf(*model.items().value()[0]), QStringLiteral("second"));
}

TEST_F(SelectionViewModelTest, ASnippetHasAnyNumberOfTags) {
    TagSelectionViewModel model;
    const auto a = Tag::create(QStringLiteral("a"), 0, {});
    const auto b = Tag::create(QStringLiteral("b"), 0, {});
    model.toggle(*snippet, *a);
    model.toggle(*snippet, *b);
    EXPECT_TRUE(model.isAssigned(*snippet, *a));
    EXPECT_TRUE(model.isAssigned(*snippet, *b));
    model.toggle(*snippet, *a);
    model.assign(*snippet, *b); // no toggle: it stays
    EXPECT_FALSE(model.isAssigned(*snippet, *a));
    EXPECT_TRUE(model.isAssigned(*snippet, *b));
}

TEST_F(SelectionViewModelTest, ASnippetLiesInOneFolderAtMost) {
    FolderSelectionViewModel model;
    const auto a = Folder::create(QStringLiteral("a"), {});
    const auto b = Folder::create(QStringLiteral("b"), {});
    EXPECT_EQ(model.colorIndexOf(*a), std::nullopt);
    model.toggle(*snippet, *a);
    model.toggle(*snippet, *b);
    EXPECT_FALSE(model.isAssigned(*snippet, *a));
    EXPECT_TRUE(model.isAssigned(*snippet, *b));
    model.toggle(*snippet, *b);
    EXPECT_EQ(snippet->folder(), nullptr);
}

TEST_F(SelectionViewModelTest, NothingIsSavedButADeletion) {
    const auto folder = Folder::create(QStringLiteral("f"), {});
    save();
    FolderSelectionViewModel model;
    model.toggle(*snippet, *folder);
    EXPECT_TRUE(context().hasChanges());
    model.remove(*folder);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(count<Snippet>(), 1U);
    EXPECT_EQ(snippet->folder(), nullptr);
}

// Another device is quicker than the finger.
TEST_F(SelectionViewModelTest, WhatWasDeletedMeanwhileIsLeftAlone) {
    const auto tag = Tag::create(QStringLiteral("t"), 0, {});
    const auto kept = Tag::create(QStringLiteral("kept"), 0, {});
    save();
    TagSelectionViewModel model;
    context().deleteObject(*tag);
    save();
    model.toggle(*snippet, *tag);
    model.assign(*snippet, *tag);
    model.remove(*tag);
    EXPECT_TRUE(snippet->toMany(Snippet::Tags).isEmpty());
    SnippetService::shared().remove(*snippet);
    model.toggle(*snippet, *kept);
    EXPECT_FALSE(model.isAssigned(*snippet, *kept));
}

} // namespace
