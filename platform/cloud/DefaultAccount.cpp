#include "platform/cloud/DefaultAccount.h"

#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/ServiceFile.h"

namespace platform {

AccountReader defaultAccountReader() {
    return [] { return ServiceFile().account(); };
}

StoreOpener defaultStoreOpener() {
    return [](const CloudAccount& account) {
        return openCloudStore(account, usualDeadline, MissingFile::Refused);
    };
}

} // namespace platform
