#pragma once

#include "platform/cloud/CKRecordID.h"

namespace platform {

// A named part of a database, which records live in.
struct CKRecordZone {
    CKRecordZoneID zoneID;

    bool operator==(const CKRecordZone&) const = default;
};

} // namespace platform
