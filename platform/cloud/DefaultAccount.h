#pragma once

#include "platform/cloud/CloudConnection.h"

namespace platform {

// The account of libpq's service file, and how its database is opened: a request of a server ends within
// usualDeadline, and one of a file waits no longer than that for others that hold its lock. A file that is
// not there is not made.
AccountReader defaultAccountReader();
StoreOpener defaultStoreOpener();

} // namespace platform
