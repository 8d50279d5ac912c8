#pragma once

#include "Quillet/cloud/CloudKitServiceError.h"
#include "Quillet/cloud/MigrationRecord.h"
#include "Quillet/core/KeyStore.h"
#include "platform/cloud/CKContainer.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quillet {

// The home list listens for it; nothing posts it.
inline const QString cloudKitUpdateNotification = QStringLiteral("CloudKitUpdate");

// The direct line to the records of the older cloud layout: sees to their zone, holds back what needs it, and
// answers a few queries. What the library does every day goes through the store's mirror instead.
//
// Any thread. Callbacks are called on the cloud's own queue. Nothing is tried twice.
class CloudKitService {
public:
    using Action = std::function<void()>;
    using RecordsCallback = std::function<void(const std::vector<platform::CKRecord>&)>;
    using CountCallback = std::function<void(qsizetype)>;
    using MigrationCallback = std::function<void(const std::shared_ptr<MigrationRecord>&)>;
    using SaveCallback = std::function<void(const std::optional<platform::CKRecord>&,
                                            const std::optional<CloudKitServiceError>&)>;

    static CloudKitService& shared();

    // Starts to look for the zone at once. Both outlive the service, and the container's queue has ended
    // before the service goes.
    CloudKitService(platform::CKContainer& container, KeyStore& keyStore);
    CloudKitService(const CloudKitService&) = delete;
    CloudKitService& operator=(const CloudKitService&) = delete;

    platform::CKContainer& container() { return *m_container; }

    const platform::CKRecordZone& defaultZone() const { return m_defaultZone; }

    // Whether the zone is known to exist. It stays false for the life of the process where the zone was
    // missing and could not be made.
    bool createdCustomZone() const;

    // Where the zone exists `action` runs at once; else it runs once it does, on the cloud's queue, or never.
    // One that comes in the very moment when the zone is found may be left unrun.
    void performWhenZoneExists(Action action);

    // These need the zone.

    // A query that fails gives no records.
    void fetchSnippetRecords(RecordsCallback callback);
    // The number goes to onLegacyRecordCount first.
    void fetchSnippetRecordCount(CountCallback callback);
    // Null where there is none, or the query fails. Of several the first counts.
    void fetchMigrationRecord(MigrationCallback callback);
    void saveRecord(const platform::CKRecord& record, platform::CKDatabase& database, SaveCallback callback);

    // Who keeps the number of records of the older layout. To be set before the first count is asked for.
    CountCallback onLegacyRecordCount;

    // Declared state without effect: nothing reads or writes it.
    bool looksLikeUserIsUnauthenticated = true;

private:
    void checkZone();
    void createZone();
    void finishCreatingZone(bool isCreated);
    void setZoneExists();
    void runPendingActions();
    std::shared_ptr<MigrationRecord> migrationRecordFrom(const platform::CKRecord& record) const;

    platform::CKContainer* m_container;
    KeyStore* m_keyStore;
    platform::CKRecordZone m_defaultZone{{QStringLiteral("QuilletZone")}};

    mutable std::mutex m_mutex; // guards these; held for moments only
    bool m_createdCustomZone = false;
    std::vector<Action> m_actionsPendingZone; // never emptied: it is run once
};

} // namespace quillet
