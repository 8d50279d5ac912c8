#include "platform/cloud/RemoteNotifications.h"

#include <atomic>

namespace platform {

namespace {

std::atomic<bool> isRegistered = false;

} // namespace

void registerForRemoteNotifications() {
    isRegistered = true;
}

bool isRegisteredForRemoteNotifications() {
    return isRegistered;
}

} // namespace platform
