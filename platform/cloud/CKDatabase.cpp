#include "platform/cloud/CKDatabase.h"

#include "platform/cloud/CloudTry.h"
#include "platform/cloud/RecordPayload.h"

namespace platform {

namespace {

CloudResult<std::vector<CKRecordZone>> fetchZones(CloudStore& store, const std::vector<CKRecordZoneID>& ids) {
    std::vector<CKRecordZone> zones;
    for (const auto& id : ids) {
        const auto exists = store.hasZone(id.zoneName);
        if (!exists) return std::unexpected(exists.error());
        if (!*exists)
            return std::unexpected(
                CKError{CKError::Code::ZoneNotFound, QStringLiteral("no zone ") + id.zoneName});
        zones.push_back({id});
    }
    return zones;
}

CloudResult<std::vector<CKRecordZone>> modifyZones(CloudStore& store,
                                                   const CKModifyRecordZonesOperation& operation) {
    if (!operation.recordZoneIDsToDelete.empty())
        return std::unexpected(
            CKError{CKError::Code::InvalidArguments, QStringLiteral("zones cannot be deleted")});
    for (const auto& zone : operation.recordZonesToSave)
        CLOUD_TRY(store.saveZone(zone.zoneID.zoneName));
    return operation.recordZonesToSave;
}

CloudResult<std::vector<CKRecord>> queryRecords(CloudStore& store, const CKQuery& query,
                                                const CKRecordZoneID& zone) {
    auto found = store.records(zone.zoneName, query.recordType);
    if (!found) return std::unexpected(found.error());
    std::vector<CKRecord> records;
    records.reserve(found->size());
    for (auto& row : *found)
        records.emplace_back(row.type, CKRecordID{row.name, zone},
                             decodePayload(row.payload).value_or(CKRecord::Fields()));
    return records;
}

CloudResult<CKRecord> save(CloudStore& store, const CKRecord& record) {
    ZoneRecord row;
    row.name = record.recordID().recordName;
    row.type = record.recordType();
    row.payload = encodePayload(record.fields());
    CLOUD_TRY(store.saveRecord(record.recordID().zoneID.zoneName, row));
    return record;
}

} // namespace

template <typename Request, typename Completion>
void CKDatabase::perform(QualityOfService qualityOfService, Request request, Completion completion) {
    m_queue.post(
        [this, request = std::move(request), completion = std::move(completion)] {
            using Result = std::invoke_result_t<Request, CloudStore&>;
            const auto store = m_connection.store();
            const Result result = store ? request(**store) : std::unexpected(store.error());
            if (store && !result) m_connection.noteFailure(result.error());
            if (completion) completion(result);
        },
        qualityOfService);
}

void CKDatabase::add(CKFetchRecordZonesOperation operation) {
    auto completion = std::move(operation.fetchRecordZonesCompletionBlock);
    const auto request = [ids = std::move(operation.recordZoneIDs)](CloudStore& store) {
        return fetchZones(store, ids);
    };
    perform(operation.qualityOfService, request, std::move(completion));
}

void CKDatabase::add(CKModifyRecordZonesOperation operation) {
    auto completion = std::move(operation.modifyRecordZonesCompletionBlock);
    const auto qualityOfService = operation.qualityOfService;
    const auto request = [operation = std::move(operation)](CloudStore& store) {
        return modifyZones(store, operation);
    };
    perform(qualityOfService, request, std::move(completion));
}

void CKDatabase::performQuery(CKQuery query, CKRecordZoneID inZoneWithID, QueryCompletion completion) {
    const auto request = [query = std::move(query), zone = std::move(inZoneWithID)](CloudStore& store) {
        return queryRecords(store, query, zone);
    };
    perform(QualityOfService::Default, request, std::move(completion));
}

void CKDatabase::saveRecord(CKRecord record, SaveCompletion completion) {
    const auto request = [record = std::move(record)](CloudStore& store) { return save(store, record); };
    perform(QualityOfService::Default, request, std::move(completion));
}

} // namespace platform
