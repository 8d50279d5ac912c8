#include "Quillet/core/Folder.h"
#include "Quillet/core/LibraryModel.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/StoreCheck.h"
#include "Quillet/core/tests/TemporaryLibrary.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

using namespace quillet;
using platform::StoreError;

namespace {

class CoreDataStackTest : public TemporaryLibrary {
protected:
    // What `body` writes to standard output, a line each.
    static QStringList linesOf(const std::function<void()>& body) {
        ::testing::internal::CaptureStdout();
        body();
        return QString::fromStdString(::testing::internal::GetCapturedStdout())
            .split(u'\n', Qt::SkipEmptyParts);
    }

    QString url() const { return QStringLiteral("file://") + storePath; }

    void writeStore(const QByteArray& bytes) const {
        QDir().mkpath(root.filePath(QStringLiteral("Quillet")));
        QFile file(storePath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

TEST_F(CoreDataStackTest, AFirstStartLogsItsStepsAndMakesAnEmptyStore) {
    EXPECT_EQ(
        linesOf([] { context(); }),
        (QStringList{QStringLiteral("☁️ Loading store"), QStringLiteral("☁️ Store descriptions"),
                     QStringLiteral("☁️ Url ") + url(), QStringLiteral("☁️ Stores set to map automatically."),
                     QStringLiteral("☁️ fetched stores")}));
    EXPECT_EQ(count<Snippet>(), 0U);
    EXPECT_FALSE(CoreDataStack::shared().health().value().loadError);
}

TEST_F(CoreDataStackTest, ASecondStartFindsTheStoreCompatible) {
    context();
    const QStringList lines = linesOf([this] { CoreDataStack(directory).viewContext(); });
    EXPECT_TRUE(lines.contains(QStringLiteral("☁️ Store at %1 is compatible ").arg(url())));
}

TEST_F(CoreDataStackTest, ASaveLogsBothLinesAlsoWithNothingToSave) {
    context();
    EXPECT_EQ(linesOf([] { CoreDataStack::shared().save(SaveReason::AddedSegment); }),
              (QStringList{QStringLiteral("💾 Attempted to save due to: Added Segment."),
                           QStringLiteral("💾 actually saved: Added Segment.")}));
}

TEST_F(CoreDataStackTest, AnIncompatibleStoreGoesAsideWithItsBytes) {
    {
        using namespace platform;
        auto model = std::make_shared<const ManagedObjectModel>(std::vector<EntityDescription>{
            {QStringLiteral("Old"),
             {{QStringLiteral("x"), AttributeType::String, Presence::Optional}},
             {},
             {}}});
        QDir().mkpath(root.filePath(QStringLiteral("Quillet")));
        ASSERT_TRUE(SqliteStore::open(storePath, model));
    }
    QFile old(storePath);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    const QByteArray bytes = old.readAll();
    old.close();
    const QStringList lines = linesOf([] { context(); });
    EXPECT_TRUE(lines.contains(QStringLiteral("☁️ Removed a store at ") + url()));
    EXPECT_FALSE(CoreDataStack::shared().health().value().loadError);
    const QStringList kept =
        QDir(root.filePath(QStringLiteral("Quillet"))).entryList({QStringLiteral("Quillet.sqlite.*")});
    ASSERT_EQ(kept.size(), 1);
    QFile aside(root.filePath(QStringLiteral("Quillet/")) + kept[0]);
    ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
    EXPECT_EQ(aside.readAll(), bytes);
}

TEST_F(CoreDataStackTest, AFileThatIsNoStoreLeavesAnEmptyLibraryThatSaysSo) {
    writeStore("no database at all, but somebody's file");
    const QStringList lines = linesOf([] { context(); });
    EXPECT_TRUE(lines.contains(
        QStringLiteral("☁️ there has been an error loading the stores and the user will have no data.")));
    ASSERT_TRUE(CoreDataStack::shared().health().value().loadError);
    EXPECT_EQ(CoreDataStack::shared().health().value().loadError->kind, StoreError::Kind::NotADatabase);
    const auto snippet =
        Snippet::create(QStringLiteral("t"), {}, QStringLiteral("c"), QStringLiteral("swift"));
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    EXPECT_EQ(snippet->code(), QStringLiteral("c"));
    ASSERT_TRUE(CoreDataStack::shared().health().value().saveError);
    EXPECT_EQ(CoreDataStack::shared().health().value().saveError->kind, StoreError::Kind::NotLoaded);
}

TEST_F(CoreDataStackTest, HealthTellsOfAFailedSaveAndOfTheNextThatWorks) {
    Snippet::create(QStringLiteral("t"), {}, QStringLiteral("c"), QStringLiteral("swift"));
    auto other =
        platform::SqliteConnection::open(storePath, platform::SqliteConnection::Access::ReadWrite).value();
    ASSERT_TRUE(other->run(QStringLiteral("BEGIN IMMEDIATE")));
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    ASSERT_TRUE(CoreDataStack::shared().health().value().saveError);
    EXPECT_EQ(CoreDataStack::shared().health().value().saveError->kind, StoreError::Kind::Busy);
    ASSERT_TRUE(other->run(QStringLiteral("ROLLBACK")));
    Snippet::create(QStringLiteral("t"), {}, {}, QStringLiteral("swift"))->setValue(Snippet::Title, {});
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    EXPECT_EQ(CoreDataStack::shared().health().value().saveError->kind, StoreError::Kind::Constraint);
    context().deleteObject(*context().fetch({QStringLiteral("Snippet"), {}, {}, {}}).back());
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    EXPECT_FALSE(CoreDataStack::shared().health().value().saveError);
    CoreDataStack reopened(directory);
    EXPECT_EQ(count<Snippet>(reopened.viewContext()), 1U);
}

TEST_F(CoreDataStackTest, AStoreDescriptionWithoutAPathIsOnlyAllowedToMigrate) {
    platform::PersistentStoreDescription description;
    const platform::PersistentStoreCoordinator coordinator(libraryModel());
    EXPECT_EQ(linesOf([&] { checkStore(description, coordinator); }),
              QStringList{QStringLiteral("☁️ Store descriptions")});
    EXPECT_TRUE(description.shouldInferMappingModelAutomatically);
    EXPECT_TRUE(description.shouldMigrateStoreAutomatically);
}

TEST_F(CoreDataStackTest, AStoreOfAnEarlierModelIsMigratedAndOneOfALaterModelIsLeftAlone) {
    Snippet::create(QStringLiteral("kept"), {}, QStringLiteral("c"), QStringLiteral("swift"));
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    auto entities = libraryModel()->entities();
    for (auto& entity : entities)
        entity.makeObject = {}; // the program's classes belong to the program's model
    entities[0].attributes.push_back(
        {QStringLiteral("rating"), platform::AttributeType::Integer16, platform::Presence::Optional});
    platform::PersistentContainer later(QStringLiteral("Quillet"),
                                        std::make_shared<const platform::ManagedObjectModel>(entities, 2),
                                        directory);
    auto& description = later.persistentStoreDescriptions().at(0);
    EXPECT_TRUE(linesOf([&] {
                    checkStore(description, later.persistentStoreCoordinator());
                }).contains(QStringLiteral("☁️ Store at %1 is compatible ").arg(url())));
    later.loadPersistentStores([](const auto&, const auto& error) { EXPECT_FALSE(error); });
    EXPECT_EQ(later.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}).size(), 1U);

    CoreDataStack earlier(directory);
    const QStringList lines = linesOf([&] { earlier.viewContext(); });
    EXPECT_FALSE(lines.contains(QStringLiteral("☁️ Removed a store at ") + url()));
    EXPECT_EQ(earlier.health().value().loadError.value().kind, StoreError::Kind::TooNew);
    EXPECT_EQ(later.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}}).size(), 1U);
}

} // namespace
