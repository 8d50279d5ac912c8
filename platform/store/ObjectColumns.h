#pragma once

#include "platform/store/ManagedObject.h"

namespace platform {

// What a save writes into a column of the object's row; columns as of StoreSchema.h. Error: the value is
// loaded on demand and cannot be read, which must fail the save: it must not go out as an absent one.
StoreResult<QVariant> columnValue(const ManagedObject& object, qsizetype column);

} // namespace platform
