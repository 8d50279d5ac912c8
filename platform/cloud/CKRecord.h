#pragma once

#include "platform/cloud/CKRecordID.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>

#include <map>
#include <optional>
#include <utility>
#include <variant>

namespace platform {

// What a field holds; monostate where it is absent.
using CKRecordValue = std::variant<std::monostate, QString, QDateTime, QByteArray, bool, qint64>;

// The value as exactly that type. Absent as well where it is of another one, however close.
template <typename T>
std::optional<T> as(const CKRecordValue& value) {
    const T* held = std::get_if<T>(&value);
    return held ? std::optional(*held) : std::nullopt;
}

// One record of a zone: its type, its identity, and fields by key. A plain value.
class CKRecord {
public:
    // A present value each; an absent field has no entry.
    using Fields = std::map<QString, CKRecordValue>;

    // One field of a record that can be written: reads as its value, and writing an absent one clears it.
    class Field {
    public:
        operator const CKRecordValue&() const { return std::as_const(m_record)[m_key]; }

        Field& operator=(CKRecordValue value);

    private:
        friend class CKRecord;

        Field(CKRecord& record, QString key)
            : m_record(record)
            , m_key(std::move(key)) {}

        CKRecord& m_record;
        QString m_key;
    };

    CKRecord(QString recordType, CKRecordID recordID, Fields fields = {})
        : m_recordType(std::move(recordType))
        , m_recordID(std::move(recordID))
        , m_fields(std::move(fields)) {}

    const QString& recordType() const { return m_recordType; }

    const CKRecordID& recordID() const { return m_recordID; }

    const Fields& fields() const { return m_fields; }

    const CKRecordValue& operator[](const QString& key) const;

    Field operator[](const QString& key) { return {*this, key}; }

    bool operator==(const CKRecord&) const = default;

private:
    QString m_recordType;
    CKRecordID m_recordID;
    Fields m_fields;
};

// For a log: type, zone, name, and the keys that have a value. Holds no contents.
QString descriptionOf(const CKRecord& record);

} // namespace platform
