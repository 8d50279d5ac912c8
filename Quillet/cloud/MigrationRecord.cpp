#include "Quillet/cloud/MigrationRecord.h"

#include "Quillet/cloud/RecordIDArchive.h"
#include "Quillet/core/SnippetKeys.h"
#include "platform/foundation/FatalError.h"

#include <QtCore/QUuid>

namespace quillet {

using platform::as;

void MigrationRecord::assignIdentity() {
    m_name = recordType() + QLatin1Char('.') + QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_id = RecordIDArchive::archive({*m_name, m_zone});
    if (!m_id) platform::fatalError("A record identifier could not be archived");
    m_lastUpdate = QDateTime::currentDateTimeUtc();
}

std::optional<platform::CKRecord> MigrationRecord::ckRecord() {
    if (!m_name) assignIdentity();
    const auto recordID = RecordIDArchive::unarchive(m_id.value_or(QByteArray()));
    if (!recordID) platform::fatalError("The id of a migration record is no record identifier");
    platform::CKRecord record(recordType(), *recordID);
    field(record, SnippetKeys::id) = *m_id;
    field(record, SnippetKeys::lastUpdate) =
        m_lastUpdate ? platform::CKRecordValue(*m_lastUpdate) : platform::CKRecordValue();
    field(record, SnippetKeys::isRevision) = m_isRevision;
    return record;
}

void MigrationRecord::update(const platform::CKRecord& record) {
    m_id = as<QByteArray>(field(record, SnippetKeys::id));
    m_name = as<QString>(field(record, SnippetKeys::name)).value_or(QString());
    m_lastUpdate = as<QDateTime>(field(record, SnippetKeys::lastUpdate));
    m_isRevision = as<bool>(field(record, SnippetKeys::isRevision)).value_or(false);
}

} // namespace quillet
