#pragma once

#include "platform/store/MappingModel.h"
#include "platform/store/SqliteConnection.h"
#include "platform/store/StoreMetadata.h"

namespace platform {

// Copies the whole store to a new file at `path`, reopens the copy, and checks that it is sound and has as
// many rows in every table. Error: no file is left at `path`.
StoreResult<void> copyVerified(SqliteConnection& connection, const QString& path);

// Turns a store of `metadata`'s model into one of `model`, in one transaction: all or nothing.
StoreResult<void> migrate(SqliteConnection& connection, const StoreMetadata& metadata,
                          const ManagedObjectModel& model, const MappingModel& mapping);

} // namespace platform
