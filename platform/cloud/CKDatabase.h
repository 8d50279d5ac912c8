#pragma once

#include "platform/cloud/CKOperations.h"
#include "platform/cloud/CloudConnection.h"

namespace platform {

// The user's private database. Calls return at once; the work is done, and each completion called, on the
// cloud's own queue. Nothing is tried twice. Any thread.
class CKDatabase {
public:
    using QueryCompletion = std::function<void(const CloudResult<std::vector<CKRecord>>&)>;
    using SaveCompletion = std::function<void(const CloudResult<CKRecord>&)>;

    // Both outlive the database; the connection is used on the queue alone.
    CKDatabase(CloudQueue& queue, CloudConnection& connection)
        : m_queue(queue)
        , m_connection(connection) {}

    CKDatabase(const CKDatabase&) = delete;
    CKDatabase& operator=(const CKDatabase&) = delete;

    void add(CKFetchRecordZonesOperation operation);
    void add(CKModifyRecordZonesOperation operation);

    // All of them in one batch, in order of their names. A record whose payload cannot be read has no fields.
    void performQuery(CKQuery query, CKRecordZoneID inZoneWithID, QueryCompletion completion);
    // Writes the record over whatever has its name.
    void saveRecord(CKRecord record, SaveCompletion completion);

private:
    // Does `request` with the store on the queue and hands what it gives to `completion`.
    template <typename Request, typename Completion>
    void perform(QualityOfService qualityOfService, Request request, Completion completion);

    CloudQueue& m_queue;
    CloudConnection& m_connection;
};

} // namespace platform
