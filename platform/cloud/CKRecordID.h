#pragma once

#include <QtCore/QString>

namespace platform {

// The owner of every zone in a private database.
inline const QString CKCurrentUserDefaultName = QStringLiteral("__user__");

struct CKRecordZoneID {
    QString zoneName;
    QString ownerName = CKCurrentUserDefaultName;

    bool operator==(const CKRecordZoneID&) const = default;
};

// A record's identity: one name in one zone.
struct CKRecordID {
    QString recordName;
    CKRecordZoneID zoneID;

    bool operator==(const CKRecordID&) const = default;
};

} // namespace platform
