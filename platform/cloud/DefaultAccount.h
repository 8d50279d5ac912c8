#pragma once

#include "platform/cloud/CloudConnection.h"

namespace platform {

// The account of libpq's service file, and how its database is opened: a request of it ends within ten
// seconds.
AccountReader defaultAccountReader();
StoreOpener defaultStoreOpener();

} // namespace platform
