#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CKRecord.h"
#include "platform/cloud/CKRecordZone.h"
#include "platform/cloud/CloudQueue.h"

#include <functional>
#include <vector>

namespace platform {

// What a database is asked to do, as values. A completion block is called once, on the cloud's own queue.

// Asks for zones. An error where one of them does not exist or cannot be reached.
struct CKFetchRecordZonesOperation {
    std::vector<CKRecordZoneID> recordZoneIDs;
    QualityOfService qualityOfService = QualityOfService::Default;
    std::function<void(const CloudResult<std::vector<CKRecordZone>>&)> fetchRecordZonesCompletionBlock;
};

// Makes zones; one that is there already stays as it is. Deleting zones is refused with InvalidArguments, and
// nothing is changed then.
struct CKModifyRecordZonesOperation {
    std::vector<CKRecordZone> recordZonesToSave;
    std::vector<CKRecordZoneID> recordZoneIDsToDelete;
    QualityOfService qualityOfService = QualityOfService::Default;
    std::function<void(const CloudResult<std::vector<CKRecordZone>>&)> modifyRecordZonesCompletionBlock;
};

// All records of one type.
struct CKQuery {
    QString recordType;
};

} // namespace platform
