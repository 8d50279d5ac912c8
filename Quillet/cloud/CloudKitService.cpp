#include "Quillet/cloud/CloudKitService.h"

#include "Quillet/core/Snippet.h"
#include "Quillet/core/SnippetKeys.h"
#include "platform/cloud/CKErrorDescription.h"
#include "platform/foundation/Log.h"
#include "platform/foundation/NeverDestroyed.h"

namespace quillet {

using platform::CKRecord;
using platform::CloudResult;
using platform::logLine;
using platform::QualityOfService;

CloudKitService& CloudKitService::shared() {
    static platform::NeverDestroyed<CloudKitService> service(platform::CKContainer::defaultContainer(),
                                                             KeyStore::shared());
    return service.get();
}

CloudKitService::CloudKitService(platform::CKContainer& container, KeyStore& keyStore)
    : m_container(&container)
    , m_keyStore(&keyStore) {
    checkZone();
}

bool CloudKitService::createdCustomZone() const {
    const std::lock_guard lock(m_mutex);
    return m_createdCustomZone;
}

void CloudKitService::performWhenZoneExists(Action action) {
    if (createdCustomZone()) {
        action();
        return;
    }
    const std::lock_guard lock(m_mutex);
    m_actionsPendingZone.push_back(std::move(action));
}

void CloudKitService::checkZone() {
    platform::CKFetchRecordZonesOperation fetch{
        {{m_defaultZone.zoneID.zoneName, platform::CKCurrentUserDefaultName}},
        QualityOfService::UserInitiated,
        {}};
    fetch.fetchRecordZonesCompletionBlock = [this](const auto& zones) {
        if (!zones) {
            logLine(QStringLiteral("☁️ need to create the zone!"));
            createZone();
            return;
        }
        logLine(QStringLiteral("☁️ no error performing actions"));
        setZoneExists();
        runPendingActions();
    };
    m_container->privateCloudDatabase().add(std::move(fetch));
}

void CloudKitService::createZone() {
    platform::CKModifyRecordZonesOperation modify{{m_defaultZone}, {}, QualityOfService::UserInitiated, {}};
    modify.modifyRecordZonesCompletionBlock = [this](const auto& zones) {
        finishCreatingZone(zones.has_value());
    };
    m_container->privateCloudDatabase().add(std::move(modify));
}

void CloudKitService::finishCreatingZone(bool isCreated) {
    logLine(QStringLiteral("☁️ Zone created")); // whatever came of it
    if (!isCreated) return;
    m_keyStore->setCreatedCustomZone();
    setZoneExists();
    logLine(QStringLiteral("☁️ Running the actions"));
    runPendingActions();
}

void CloudKitService::setZoneExists() {
    const std::lock_guard lock(m_mutex);
    m_createdCustomZone = true;
}

void CloudKitService::runPendingActions() {
    std::unique_lock lock(m_mutex);
    const auto actions = m_actionsPendingZone;
    lock.unlock();
    for (const auto& action : actions) {
        logLine(QStringLiteral("☁️ Performing a pending action"));
        action();
    }
}

void CloudKitService::fetchSnippetRecords(RecordsCallback callback) {
    const auto completion = [callback = std::move(callback)](const auto& records) {
        callback(records.value_or(std::vector<CKRecord>()));
    };
    m_container->privateCloudDatabase().performQuery({Snippet::recordType()}, m_defaultZone.zoneID,
                                                     completion);
}

void CloudKitService::fetchSnippetRecordCount(CountCallback callback) {
    fetchSnippetRecords([this, callback = std::move(callback)](const auto& records) {
        const auto count = static_cast<qsizetype>(records.size());
        if (onLegacyRecordCount) onLegacyRecordCount(count);
        callback(count);
    });
}

void CloudKitService::fetchMigrationRecord(MigrationCallback callback) {
    const auto completion = [this, callback = std::move(callback)](const auto& records) {
        if (records && !records->empty()) {
            logLine(QStringLiteral("☁️ There is a Record - can i get data from it?"));
            callback(migrationRecordFrom(records->front()));
            return;
        }
        const QString error = records ? QStringLiteral("nil") : platform::descriptionOf(records.error());
        logLine(QStringLiteral("☁️ fetch error ") + error);
        callback(nullptr);
    };
    m_container->privateCloudDatabase().performQuery({MigrationRecord::recordType()}, m_defaultZone.zoneID,
                                                     completion);
}

std::shared_ptr<MigrationRecord> CloudKitService::migrationRecordFrom(const CKRecord& record) const {
    if (!platform::as<QByteArray>(field(record, SnippetKeys::id))) {
        logLine(QStringLiteral("☁️ There is no migration record"));
        return nullptr;
    }
    logLine(QStringLiteral("☁️ There is a CK record. Nice"));
    auto migrationRecord = std::make_shared<MigrationRecord>(m_defaultZone.zoneID);
    migrationRecord->update(record);
    return migrationRecord;
}

void CloudKitService::saveRecord(const CKRecord& record, platform::CKDatabase& database,
                                 SaveCallback callback) {
    logLine(QStringLiteral("A record has been saved")); // ahead of the save on purpose
    database.saveRecord(record, [callback = std::move(callback)](const CloudResult<CKRecord>& saved) {
        if (saved)
            callback(*saved, std::nullopt);
        else
            callback(std::nullopt, CloudKitServiceError::from(saved.error()));
    });
}

} // namespace quillet
