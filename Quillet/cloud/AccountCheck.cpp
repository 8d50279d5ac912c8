#include "Quillet/cloud/AccountCheck.h"

#include "platform/foundation/MainQueue.h"

namespace quillet {

using platform::CKAccountStatus;

void checkAccount(platform::CKContainer& container, std::function<void(const AccountWarning&)> warn) {
    container.accountStatus([warn = std::move(warn)](CKAccountStatus status, const auto&) {
        if (status == CKAccountStatus::Restricted || status == CKAccountStatus::NoAccount)
            platform::dispatchToMain([warn] { warn(AccountWarning()); });
    });
}

} // namespace quillet
