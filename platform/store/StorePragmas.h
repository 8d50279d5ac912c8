#pragma once

#include "platform/store/SqliteConnection.h"

namespace platform {

// Sets what every connection that writes into a store keeps to: how it reaches the disk, that references
// are checked, how much it trusts the file.
StoreResult<void> setStorePragmas(SqliteConnection& connection);

} // namespace platform
