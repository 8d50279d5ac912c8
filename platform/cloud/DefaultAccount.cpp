#include "platform/cloud/DefaultAccount.h"

#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/ServiceFile.h"

namespace platform {

namespace {

constexpr Deadline deadline = std::chrono::seconds(10);

} // namespace

AccountReader defaultAccountReader() {
    return [] { return ServiceFile().account(); };
}

StoreOpener defaultStoreOpener() {
    return [](const CloudAccount& account) { return openCloudStore(account, deadline); };
}

} // namespace platform
