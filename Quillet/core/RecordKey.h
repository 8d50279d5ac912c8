#pragma once

#include "platform/cloud/CKRecord.h"

#include <concepts>

namespace quillet {

// The key of a field of cloud records: whatever has a raw value, the field's name in the record.
template <typename Key>
concept RecordKey = requires(const Key key) {
    { rawValue(key) } -> std::convertible_to<QString>;
};

template <RecordKey Key>
const platform::CKRecordValue& field(const platform::CKRecord& record, Key key) {
    return record[rawValue(key)];
}

// To be written; an absent value clears the field.
template <RecordKey Key>
platform::CKRecord::Field field(platform::CKRecord& record, Key key) {
    return record[rawValue(key)];
}

} // namespace quillet
