#pragma once

#include "Quillet/cloud/CloudKitService.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/UserSettings.h"
#include "platform/foundation/Observable.h"

namespace quillet {

class Snippet;

// Moves the records of the older cloud layout into the library, once, and marks that in the cloud and in the
// settings. Main thread; the cloud's answers come back there. Whatever fails ends the run, and the mark
// decides what the next start does.
class CoreDataMigrator {
public:
    static CoreDataMigrator& shared();

    // All outlive the migrator.
    CoreDataMigrator(CloudKitService& cloudKitService, CoreDataStack& coreDataStack, UserSettings& settings);
    CoreDataMigrator(const CoreDataMigrator&) = delete;
    CoreDataMigrator& operator=(const CoreDataMigrator&) = delete;

    // The check of a start of the program. Returns once snippets without a language are deleted; the rest
    // follows when the cloud answers.
    void start();

    const platform::Observable<bool>& foundMigrationRecord() const { return m_foundMigrationRecord; }

    platform::Observable<bool>& foundMigrationRecord() { return m_foundMigrationRecord; }

    // Counted where the cloud has a migration record.
    const platform::Observable<qsizetype>& legacyCloudKitRecordCount() const {
        return m_legacyCloudKitRecordCount;
    }

    platform::Observable<qsizetype>& legacyCloudKitRecordCount() { return m_legacyCloudKitRecordCount; }

private:
    void removeEmptySnippets();
    void decide(const std::shared_ptr<MigrationRecord>& record);
    void migrateFromCloud();
    void importRecords(const std::vector<platform::CKRecord>& records);
    void countLegacyRecords();
    void saveMigrationRecord();
    void finishSaving(const std::optional<platform::CKRecord>& record,
                      const std::optional<CloudKitServiceError>& error);
    std::vector<std::shared_ptr<Snippet>> allSnippets();

    CloudKitService* m_cloudKitService;
    CoreDataStack* m_coreDataStack;
    UserSettings* m_settings;
    platform::Observable<bool> m_foundMigrationRecord;
    platform::Observable<qsizetype> m_legacyCloudKitRecordCount;
};

} // namespace quillet
