#include "Quillet/cloud/RecordIDArchive.h"
#include "Quillet/cloud/tests/CloudLibrary.h"
#include "Quillet/core/Snippet.h"

#include <QtCore/QRegularExpression>

using namespace quillet;
using platform::CKError;

namespace {

QString q(const char* text) {
    return QString::fromUtf8(text);
}

const QString noEmpty = q("☁️ The empty count was: 0");
const QString noRecord = q("☁️ fetch error nil");
const QString badOrNone =
    q("☁️ No migration record found, and the user hasnt been migrated. ( or they have and its bad )");

// The lines of an import of `records` that leaves `all` in the store, up to the marker.
QStringList importLines(int records, int all) {
    return {q("☁️  Fetch complete, starting procedures."), q("☁️ Found Snippets, count is %1.").arg(records),
            q("☁️ I was passed these objects %1").arg(records), q("☁️ Migrated Objects %1").arg(all),
            q("A record has been saved")};
}

class CoreDataMigratorTest : public CloudLibrary {
protected:
    void SetUp() override {
        CloudLibrary::SetUp();
        cloud->addZone(zone);
    }

    void run() {
        migrator().start();
        settle();
    }

    // What was logged, without the zone's lines and with the new marker's name made out.
    QStringList lines() {
        QStringList kept;
        for (QString line : log()) {
            if (line == q("☁️ no error performing actions") || line == q("☁️ Performing a pending action"))
                continue;
            kept += line.replace(QRegularExpression(q("MigrationRecord\\.[0-9a-f-]{36}")), q("MARKER"));
        }
        return kept;
    }

    static QStringList savedLines() {
        return {q("☁️ Record has been sent to cloudkit. If this errors, we need to try again later on."),
                q("☁️ Error: nil"),
                q("☁️ Record: MigrationRecord QuilletZone/MARKER {id, isRevision, lastUpdate}")};
    }

    static bool isMigrated() { return UserSettings::shared().snippetsMigrated.value(); }

    std::size_t storedSnippets() {
        CoreDataStack reopened(directory);
        return count<Snippet>(reopened.viewContext());
    }
};

TEST_F(CoreDataMigratorTest, AGoodRecordOnlyCounts) {
    addMarker(q("m"), true);
    addLegacySnippet(q("one"));
    addLegacySnippet(q("two"));
    run();
    EXPECT_TRUE(migrator().foundMigrationRecord().value());
    EXPECT_EQ(migrator().legacyCloudKitRecordCount().value(), 2);
    EXPECT_EQ(count<Snippet>(), 0U);
    EXPECT_EQ(markers().size(), 1U);
    EXPECT_FALSE(isMigrated());
    EXPECT_EQ(lines(), (QStringList{noEmpty, q("☁️ There is a Record - can i get data from it?"),
                                    q("☁️ There is a CK record. Nice"),
                                    q("☁️ User migration was completed on 2023-11-14 22:13:20 +0000 and was "
                                      "revised true")}));
}

TEST_F(CoreDataMigratorTest, ABadRecordMigratesAgainAndCounts) {
    addMarker(q("0"), false);
    addLegacySnippet(q("one"));
    UserSettings::shared().snippetsMigrated.set(true); // makes no difference
    run();
    EXPECT_EQ(migrator().legacyCloudKitRecordCount().value(), 1);
    EXPECT_EQ(markers().size(), 2U) << "the new marker stands beside the old one";
    EXPECT_EQ(lines(), (QStringList{noEmpty, q("☁️ There is a Record - can i get data from it?"),
                                    q("☁️ There is a CK record. Nice"),
                                    q("☁️ User migration was completed on 2023-11-14 22:13:20 +0000 and was "
                                      "revised false"),
                                    q("☁️ User migration was the bad one."), badOrNone} +
                        importLines(1, 1) + savedLines()));
    EXPECT_EQ(storedSnippets(), 1U);
}

TEST_F(CoreDataMigratorTest, ABadRecordThatStaysTheFirstMigratesTwice) {
    addMarker(q("0"), false);
    addLegacySnippet(q("one"));
    run();
    run();
    EXPECT_EQ(storedSnippets(), 2U) << "nothing looks for duplicates";
    EXPECT_EQ(markers().size(), 3U);
}

TEST_F(CoreDataMigratorTest, NoRecordOfAMigratedUserOnlyWritesTheMarker) {
    UserSettings::shared().snippetsMigrated.set(true);
    addLegacySnippet(q("one"));
    run();
    EXPECT_EQ(count<Snippet>(), 0U);
    EXPECT_TRUE(isMigrated());
    EXPECT_FALSE(migrator().foundMigrationRecord().value());
    EXPECT_EQ(migrator().legacyCloudKitRecordCount().value(), 0);
    EXPECT_EQ(lines(),
              (QStringList{noEmpty, noRecord,
                           q("☁️ No migration record found, but the user has been migrated, so lets try to "
                             "persist to the cloud. If it errors, thats ok."),
                           q("A record has been saved")} +
               savedLines()));
}

TEST_F(CoreDataMigratorTest, NoRecordMigratesAndTheCountIsOfTheWholeStore) {
    Snippet::create(q("here"), {}, q("c"), q("c"));
    addLegacySnippet(q("one"));
    addLegacySnippet(q("two"));
    run();
    EXPECT_TRUE(isMigrated());
    EXPECT_EQ(lines(), (QStringList{noEmpty, noRecord, badOrNone} + importLines(2, 3) + savedLines()));
    EXPECT_EQ(storedSnippets(), 3U);

    const auto marker = markers().at(0);
    EXPECT_EQ(platform::as<bool>(field(marker, SnippetKeys::isRevision)), true);
    EXPECT_TRUE(platform::as<QDateTime>(field(marker, SnippetKeys::lastUpdate)));
    EXPECT_EQ(RecordIDArchive::unarchive(platform::as<QByteArray>(field(marker, SnippetKeys::id)).value()),
              marker.recordID());
}

TEST_F(CoreDataMigratorTest, ANewUserGetsAMarkerAndTheNextStartFindsIt) {
    run();
    EXPECT_EQ(markers().size(), 1U);
    run();
    EXPECT_TRUE(migrator().foundMigrationRecord().value());
    EXPECT_EQ(markers().size(), 1U);
}

TEST_F(CoreDataMigratorTest, AQueryThatFailsReadsAsNothingAndTheMarkerIsWrittenAllTheSame) {
    addLegacySnippet(q("one"));
    cloud->fail(q("records"), CKError::Code::ServiceUnavailable);
    run();
    EXPECT_EQ(count<Snippet>(), 0U);
    EXPECT_EQ(markers().size(), 1U);
    EXPECT_TRUE(isMigrated());
}

TEST_F(CoreDataMigratorTest, AMarkerThatCannotBeSavedMigratesAgainAtTheNextStart) {
    UserSettings::shared().snippetsMigrated.set(false);
    addLegacySnippet(q("one"));
    cloud->fail(q("saveRecord"), CKError::Code::QuotaExceeded);
    run();
    EXPECT_FALSE(isMigrated());
    run();
    EXPECT_EQ(lines().last(2), (QStringList{q("☁️ Error: generic: 25 (quotaExceeded) as the test wants it"),
                                            q("☁️ Record: nil")}));
    EXPECT_EQ(storedSnippets(), 2U);
}

TEST_F(CoreDataMigratorTest, AMarkerThatIsLostTakesTheFlagBack) {
    UserSettings::shared().snippetsMigrated.set(true);
    cloud->fail(q("saveRecord"), CKError::Code::NetworkFailure);
    run();
    EXPECT_FALSE(isMigrated());
    EXPECT_EQ(lines().last(2), (QStringList{q("☁️ Error: networkFailure"), q("☁️ Record: nil")}));
}

TEST_F(CoreDataMigratorTest, WithoutAZoneNothingBeginsButEmptySnippetsGo) {
    cloud->fail(q("open"), CKError::Code::NotAuthenticated);
    auto empty = std::make_shared<Snippet>();
    empty->setTitle(q("t"));
    empty->setCode(q("c"));
    context().insert(empty);
    Snippet::create(q("kept"), {}, q("c"), QString(q("")));
    CoreDataStack::shared().saveContext();
    migrator().start();
    EXPECT_EQ(count<Snippet>(), 1U) << "at once";
    settle();
    const QStringList lines = log(); // of two threads, each in its order
    EXPECT_EQ(lines.filter(q("empty")),
              (QStringList{q("☁️ I found a empty snippet!"), q("☁️ The empty count was: 1")}));
    EXPECT_EQ(lines.filter(QRegularExpression(q("[zZ]one"))),
              (QStringList{q("☁️ need to create the zone!"), q("☁️ Zone created")}));
    EXPECT_EQ(lines.size(), 4);
    EXPECT_EQ(storedSnippets(), 2U) << "nothing is saved here";
    CoreDataStack::shared().saveContext();
    EXPECT_EQ(storedSnippets(), 1U);
    EXPECT_FALSE(isMigrated());
}

TEST_F(CoreDataMigratorTest, WhatARecordLeavesOutCannotKeepTheLibraryFromSaving) {
    addRecord(q("Snippet"), q("Snippet.1"),
              {{q("title"), qint64(7)},
               {q("code"), QByteArray("c")},
               {q("notes"), true},
               {q("name"), q("n")},
               {q("lastUpdate"), QDateTime::fromMSecsSinceEpoch(1, Qt::UTC)},
               {q("id"), QByteArray("i")}});
    cloud->add(zone, {q("Snippet.2"), q("Snippet"), 0, false, "\xff garbage", {}});
    run();
    EXPECT_EQ(storedSnippets(), 2U);
    const auto fetched = context().fetch({q("Snippet"), {{Snippet::Name, Qt::DescendingOrder}}, {}, 1});
    const auto& snippet = static_cast<const Snippet&>(*fetched.at(0));
    EXPECT_EQ(snippet.name(), q("n"));
    EXPECT_EQ(snippet.lastUpdate(), QDateTime::fromMSecsSinceEpoch(1, Qt::UTC));
    EXPECT_EQ(snippet.title(), QString(q("")));
    EXPECT_EQ(snippet.code(), QString(q("")));
    EXPECT_TRUE(snippet.isAbsent(Snippet::Notes));
    EXPECT_EQ(snippet.id(), std::nullopt);
    EXPECT_EQ(snippet.language(), std::nullopt);
    run();
    EXPECT_EQ(count<Snippet>(), 0U) << "no language: gone at the next start";
}

} // namespace
