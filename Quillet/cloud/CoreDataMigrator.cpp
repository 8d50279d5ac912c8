#include "Quillet/cloud/CoreDataMigrator.h"

#include "Quillet/cloud/LegacySnippet.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/MainQueue.h"
#include "platform/foundation/NeverDestroyed.h"

namespace quillet {

using platform::CKRecord;
using platform::dispatchToMain;
using platform::logLine;

namespace {

// How a value that may be absent reads in the log.
const QString absent = QStringLiteral("nil");

template <typename T>
QString descriptionOfOptional(const std::optional<T>& value) {
    return value ? descriptionOf(*value) : absent;
}

QString descriptionOfDate(const std::optional<QDateTime>& date) {
    return date ? date->toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss +0000")) : absent;
}

} // namespace

CoreDataMigrator& CoreDataMigrator::shared() {
    static platform::NeverDestroyed<CoreDataMigrator> migrator(
        CloudKitService::shared(), CoreDataStack::shared(), UserSettings::shared());
    return migrator.get();
}

CoreDataMigrator::CoreDataMigrator(CloudKitService& cloudKitService, CoreDataStack& coreDataStack,
                                   UserSettings& settings)
    : m_cloudKitService(&cloudKitService)
    , m_coreDataStack(&coreDataStack)
    , m_settings(&settings) {
    m_cloudKitService->onLegacyRecordCount = [this](qsizetype count) {
        dispatchToMain([this, count] { m_legacyCloudKitRecordCount.set(count); });
    };
}

void CoreDataMigrator::start() {
    removeEmptySnippets();
    m_cloudKitService->performWhenZoneExists([this] {
        m_cloudKitService->fetchMigrationRecord(
            [this](const auto& record) { dispatchToMain([this, record] { decide(record); }); });
    });
}

// The deletions reach the disk with the next save of the context.
void CoreDataMigrator::removeEmptySnippets() {
    qsizetype count = 0;
    for (const auto& snippet : allSnippets()) {
        if (snippet->language()) continue;
        logLine(QStringLiteral("☁️ I found a empty snippet!"));
        m_coreDataStack->viewContext().deleteObject(*snippet);
        ++count;
    }
    logLine(QStringLiteral("☁️ The empty count was: %1").arg(count));
}

void CoreDataMigrator::decide(const std::shared_ptr<MigrationRecord>& record) {
    if (record) {
        m_foundMigrationRecord.set(true);
        const bool isRevision = record->isRevision();
        logLine(QStringLiteral("☁️ User migration was completed on %1 and was revised %2")
                    .arg(descriptionOfDate(record->lastUpdate()),
                         isRevision ? QStringLiteral("true") : QStringLiteral("false")));
        if (!isRevision) {
            logLine(QStringLiteral("☁️ User migration was the bad one."));
            migrateFromCloud();
        }
        countLegacyRecords();
    } else if (m_settings->snippetsMigrated.value()) {
        logLine(QStringLiteral("☁️ No migration record found, but the user has been migrated, so lets try to "
                               "persist to the cloud. If it errors, thats ok."));
        saveMigrationRecord();
    } else {
        migrateFromCloud();
    }
}

void CoreDataMigrator::migrateFromCloud() {
    logLine(
        QStringLiteral("☁️ No migration record found, and the user hasnt been migrated. ( or they have and "
                       "its bad )"));
    m_cloudKitService->performWhenZoneExists([this] {
        m_cloudKitService->fetchSnippetRecords(
            [this](const auto& records) { dispatchToMain([this, records] { importRecords(records); }); });
    });
}

// Nothing looks for duplicates.
void CoreDataMigrator::importRecords(const std::vector<CKRecord>& records) {
    logLine(QStringLiteral("☁️  Fetch complete, starting procedures."));
    std::vector<std::shared_ptr<Snippet>> snippets;
    snippets.reserve(records.size());
    for (const auto& record : records)
        snippets.push_back(legacySnippet(record));
    logLine(QStringLiteral("☁️ Found Snippets, count is %1.").arg(records.size()));
    logLine(QStringLiteral("☁️ I was passed these objects %1").arg(snippets.size()));
    for (const auto& snippet : snippets)
        m_coreDataStack->viewContext().insert(snippet);
    logLine(QStringLiteral("☁️ Migrated Objects %1").arg(allSnippets().size()));
    m_coreDataStack->saveContext();
    saveMigrationRecord();
}

void CoreDataMigrator::countLegacyRecords() {
    m_cloudKitService->performWhenZoneExists([this] {
        m_cloudKitService->fetchSnippetRecordCount([this](qsizetype count) {
            dispatchToMain([this, count] { m_legacyCloudKitRecordCount.set(count); });
        });
    });
}

void CoreDataMigrator::saveMigrationRecord() {
    MigrationRecord marker(m_cloudKitService->defaultZone().zoneID);
    marker.setIsRevision(true);
    marker.setLastUpdate(QDateTime::currentDateTimeUtc());
    marker.assignIdentity();
    const auto record = marker.ckRecord();
    if (!record) return;
    m_cloudKitService->saveRecord(
        *record, m_cloudKitService->container().privateCloudDatabase(),
        [this](const auto& saved, const auto& error) { finishSaving(saved, error); });
}

// On the cloud's queue, which the settings bear.
void CoreDataMigrator::finishSaving(const std::optional<CKRecord>& record,
                                    const std::optional<CloudKitServiceError>& error) {
    logLine(
        QStringLiteral("☁️ Record has been sent to cloudkit. If this errors, we need to try again later on."));
    logLine(QStringLiteral("☁️ Error: ") + descriptionOfOptional(error));
    logLine(QStringLiteral("☁️ Record: ") + descriptionOfOptional(record));
    m_settings->snippetsMigrated.set(!error);
}

std::vector<std::shared_ptr<Snippet>> CoreDataMigrator::allSnippets() {
    std::vector<std::shared_ptr<Snippet>> snippets;
    for (const auto& object :
         m_coreDataStack->viewContext().fetch({Snippet::recordType(), {{Snippet::Name}}, {}, {}}))
        snippets.push_back(std::static_pointer_cast<Snippet>(object));
    return snippets;
}

} // namespace quillet
