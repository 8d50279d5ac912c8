#include "Quillet/cloud/MigrationRecord.h"

#include "Quillet/cloud/RecordIDArchive.h"
#include "Quillet/core/SnippetKeys.h"

#include <gtest/gtest.h>

using namespace quillet;

namespace {

const platform::CKRecordID recordID{QStringLiteral("MigrationRecord.\u00e9"),
                                    {QStringLiteral("QuilletZone")}};

TEST(RecordIDArchiveTest, GivesBackWhatItWasGiven) {
    const auto bytes = RecordIDArchive::archive(recordID);
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(bytes->startsWith(QByteArray("QRID\x01\0\x12MigrationRecord.\xc3\xa9\0\x0bQuilletZone", 38)));
    EXPECT_EQ(RecordIDArchive::unarchive(*bytes), recordID);
    EXPECT_FALSE(RecordIDArchive::archive({QString(70'000, QLatin1Char('x')), {}}));
    EXPECT_FALSE(RecordIDArchive::archive({QString(QChar(0xD800)), {}}));
}

TEST(RecordIDArchiveTest, AnyOtherBytesAreRefused) {
    const QByteArray whole = RecordIDArchive::archive(recordID).value();
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(RecordIDArchive::unarchive(whole.left(size))) << size;
    EXPECT_FALSE(RecordIDArchive::unarchive(whole + 'x'));
    for (qsizetype at = 0; at < whole.size(); ++at)
        for (const int bit : {1, 0x40, 0x80}) {
            QByteArray flipped = whole;
            flipped[at] = static_cast<char>(flipped[at] ^ bit);
            const auto read = RecordIDArchive::unarchive(flipped);
            if (!read) continue;
            EXPECT_NE(*read, recordID);
            EXPECT_EQ(RecordIDArchive::archive(*read), flipped);
        }
}

TEST(MigrationRecordTest, IsGivenAnIdentityWhenARecordIsMadeOfIt) {
    MigrationRecord migrationRecord(recordID.zoneID);
    EXPECT_FALSE(migrationRecord.name());
    const auto record = migrationRecord.ckRecord();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->recordType(), QStringLiteral("MigrationRecord"));
    EXPECT_EQ(record->recordID(), (platform::CKRecordID{*migrationRecord.name(), recordID.zoneID}));
    EXPECT_TRUE(migrationRecord.name()->startsWith(QStringLiteral("MigrationRecord.")));
    EXPECT_EQ(field(*record, SnippetKeys::id), platform::CKRecordValue(*migrationRecord.id()));
    EXPECT_EQ(field(*record, SnippetKeys::lastUpdate),
              platform::CKRecordValue(*migrationRecord.lastUpdate()));
    EXPECT_EQ(field(*record, SnippetKeys::isRevision), platform::CKRecordValue(false));
    EXPECT_EQ(record->fields().size(), 3U) << "no name";
    EXPECT_EQ(migrationRecord.ckRecord()->recordID(), record->recordID()) << "once";
}

TEST(MigrationRecordDeathTest, AnIdThatIsNoArchiveStopsTheProgram) {
    MigrationRecord migrationRecord(recordID.zoneID);
    migrationRecord.setName(QStringLiteral("n"));
    EXPECT_DEATH((void)migrationRecord.ckRecord(), "no record identifier");
    migrationRecord.setId(QByteArray("corrupt"));
    EXPECT_DEATH((void)migrationRecord.ckRecord(), "no record identifier");
}

TEST(SnippetKeysTest, AreEightInOrderUnderTheirOwnNames) {
    QStringList names;
    for (const auto key : allSnippetKeys) {
        names += rawValue(key);
        EXPECT_EQ(snippetKeyFromRawValue(rawValue(key)), key);
    }
    EXPECT_EQ(names.join(QLatin1Char(' ')),
              QStringLiteral("id name lastUpdate title notes code language isRevision"));
    EXPECT_EQ(snippetKeyFromRawValue(QStringLiteral("ID")), std::nullopt);
}

} // namespace
