#pragma once

#include "platform/cloud/CKRecordID.h"

#include <QtCore/QByteArray>

#include <optional>

namespace quillet {

// A record's identity as bytes, to be kept with the object that the record stands for.
//
// The four bytes "QRID", the byte 1, and then the name of the record, that of the zone and that of the
// owner, each as two bytes of length, the higher first, and so many bytes of UTF-8. Nothing behind.
class RecordIDArchive {
public:
    // Nothing where a name is longer than 65535 bytes or is no well-formed Unicode.
    static std::optional<QByteArray> archive(const platform::CKRecordID& id);
    // Nothing for any bytes but those that archive() gives.
    static std::optional<platform::CKRecordID> unarchive(const QByteArray& bytes);
};

} // namespace quillet
