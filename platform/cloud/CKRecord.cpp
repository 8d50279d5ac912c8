#include "platform/cloud/CKRecord.h"

#include <QtCore/QStringList>

namespace platform {

CKRecord::Field& CKRecord::Field::operator=(CKRecordValue value) {
    if (std::holds_alternative<std::monostate>(value))
        m_record.m_fields.erase(m_key);
    else
        m_record.m_fields.insert_or_assign(m_key, std::move(value));
    return *this;
}

const CKRecordValue& CKRecord::operator[](const QString& key) const {
    static const CKRecordValue absent;
    const auto found = m_fields.find(key);
    return found == m_fields.end() ? absent : found->second;
}

QString descriptionOf(const CKRecord& record) {
    QStringList keys;
    for (const auto& [key, value] : record.fields())
        keys += key;
    return QStringLiteral("%1 %2/%3 {%4}")
        .arg(record.recordType(), record.recordID().zoneID.zoneName, record.recordID().recordName,
             keys.join(QStringLiteral(", ")));
}

} // namespace platform
