#pragma once

namespace platform {

// Asks for being told of changes by the server instead of only asking it now and then. For the life of the
// process, and without a failure: where the server cannot tell, polling goes on. Any thread.
void registerForRemoteNotifications();
bool isRegisteredForRemoteNotifications();

} // namespace platform
