#include "Quillet/core/Folder.h"
#include "Quillet/core/FolderService.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/core/Tag.h"
#include "Quillet/core/TagService.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

using namespace quillet;

namespace {

class ServicesTest : public TemporaryLibrary {
protected:
    std::shared_ptr<Snippet> snippet =
        Snippet::create(QStringLiteral("t"), {}, QStringLiteral("c"), QStringLiteral("swift"));
    std::shared_ptr<Tag> tag = Tag::create(QStringLiteral("tag"), 3, QDateTime::currentDateTime());
    std::shared_ptr<Folder> folder = Folder::create(QStringLiteral("folder"), QDateTime::currentDateTime());

    void SetUp() override {
        snippet->addToMany(Snippet::Tags, *tag);
        snippet->setToOne(Snippet::InFolder, folder.get());
        SnippetService::shared().save(snippet);
    }
};

TEST_F(ServicesTest, ConstructorsGiveIdentityAndDropTheDate) {
    EXPECT_FALSE(tag->id().isNull());
    EXPECT_NE(tag->id(), folder->id());
    EXPECT_TRUE(tag->value(Tag::CreatedDate).isNull());
    EXPECT_TRUE(folder->value(Folder::CreatedDate).isNull());
    EXPECT_EQ(tag->colorIndex(), 3);
}

TEST_F(ServicesTest, DeletingATagOrFolderLeavesTheSnippet) {
    TagService::shared().remove(*tag, TagService::Snippets::Keep);
    FolderService::shared().remove(*folder, FolderService::Snippets::Keep);
    EXPECT_TRUE(snippet->toMany(Snippet::Tags).isEmpty());
    EXPECT_EQ(snippet->folder(), nullptr);
    CoreDataStack reopened(directory);
    EXPECT_EQ(count<Snippet>(reopened.viewContext()), 1U);
    EXPECT_EQ(count<Tag>(reopened.viewContext()), 0U);
    EXPECT_EQ(count<Folder>(reopened.viewContext()), 0U);
}

TEST_F(ServicesTest, DeletingWithTheSnippetsTakesThemAlong) {
    TagService::shared().remove(*tag, TagService::Snippets::Delete);
    EXPECT_EQ(count<Snippet>(), 0U);
    EXPECT_TRUE(folder->toMany(Folder::Snippets).isEmpty());
    FolderService::shared().remove(*folder, FolderService::Snippets::Delete);
    CoreDataStack reopened(directory);
    EXPECT_EQ(count<Snippet>(reopened.viewContext()), 0U);
}

TEST_F(ServicesTest, DeletingASnippetTakesItsSegments) {
    auto segment = std::make_shared<Segment>();
    context().insert(segment);
    segment->setToOne(Segment::OfSnippet, snippet.get());
    CoreDataStack::shared().save(SaveReason::AddedSegment);
    EXPECT_FALSE(segment->value(Segment::CreationDate).isNull());
    SnippetService::shared().remove(*snippet);
    context().deleteObject(*snippet); // a second time, without effect
    CoreDataStack reopened(directory);
    EXPECT_EQ(count<Segment>(reopened.viewContext()), 0U);
}

TEST_F(ServicesTest, SavingADetachedSnippetInsertsItOnce) {
    auto detached = std::make_shared<Snippet>();
    detached->setTitle(QStringLiteral("legacy"));
    detached->setCode(QString());
    SnippetService::shared().save(detached);
    SnippetService::shared().save(detached);
    EXPECT_EQ(count<Snippet>(), 2U);
}

TEST_F(ServicesTest, SavesAndDeletionsAreLoggedAheadOfTheirEffect) {
    ::testing::internal::CaptureStdout();
    bool isLogged = false;
    const auto subscription = context().onChange([&isLogged](const auto& changes) {
        isLogged = !changes.deleted.empty(); // the line stands when the change is told
    });
    snippet->setTitle(QStringLiteral("new"));
    SnippetService::shared().save(snippet);
    SnippetService::shared().remove(*snippet);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "💾 Saving a snippet\n💾 Deleting a snippet\n");
    EXPECT_TRUE(isLogged);
}

TEST_F(ServicesTest, SegmentsSortByDateAndOneWithoutADateComesLast) {
    const auto add = [this](const char* title, const QVariant& date) {
        auto segment = std::make_shared<Segment>();
        context().insert(segment);
        segment->setTitle(QString::fromLatin1(title));
        segment->setValue(Segment::CreationDate, date);
        segment->setToOne(Segment::OfSnippet, snippet.get());
    };
    add("undated", {});
    add("second", QDateTime::fromMSecsSinceEpoch(2000, Qt::UTC));
    add("first", QDateTime::fromMSecsSinceEpoch(1000, Qt::UTC));
    QStringList titles;
    for (const auto& segment : snippet->sortedSegments())
        titles += segment->title();
    EXPECT_EQ(titles,
              (QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("undated")}));
}

} // namespace
