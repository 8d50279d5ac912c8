#pragma once

#include "Quillet/core/CKManagedObject.h"

namespace quillet {

// The mark in the cloud that the records of the older layout were moved into the library. In memory only. One
// thread at a time.
class MigrationRecord {
public:
    static QString recordType() { return QStringLiteral("MigrationRecord"); }

    // New, in that zone; has no identity until it is given one.
    explicit MigrationRecord(platform::CKRecordZoneID zone)
        : m_zone(std::move(zone)) {}

    MigrationRecord(const MigrationRecord&) = delete;
    MigrationRecord& operator=(const MigrationRecord&) = delete;

    // The archive of the record's identity.
    std::optional<QByteArray> id() const { return m_id; }

    void setId(const std::optional<QByteArray>& id) { m_id = id; }

    // The record's name, which carries the type in front.
    std::optional<QString> name() const { return m_name; }

    void setName(const std::optional<QString>& name) { m_name = name; }

    std::optional<QDateTime> lastUpdate() const { return m_lastUpdate; }

    void setLastUpdate(const std::optional<QDateTime>& date) { m_lastUpdate = date; }

    // False tells of a migration that has to be done again.
    bool isRevision() const { return m_isRevision; }

    void setIsRevision(bool isRevision) { m_isRevision = isRevision; }

    // Sets name, id and lastUpdate for a new record.
    void assignIdentity();

    // Gives the record an identity first where it has no name. An id that is no archive of an identity is
    // fatal. The name is no field of the record.
    std::optional<platform::CKRecord> ckRecord();

    // Reads what a record in the cloud says. A name that is no text reads as the empty one.
    void update(const platform::CKRecord& record);

private:
    platform::CKRecordZoneID m_zone;
    std::optional<QByteArray> m_id;
    std::optional<QString> m_name;
    std::optional<QDateTime> m_lastUpdate;
    bool m_isRevision = false;
};

static_assert(CKManagedObject<MigrationRecord>);

} // namespace quillet
