#pragma once

#include "platform/cloud/CKContainer.h"

#include <QtCore/QString>

#include <functional>

namespace quillet {

// What the user is told who has no account that can be used.
struct AccountWarning {
    QString title = QStringLiteral("iCloud");
    QString message =
        QStringLiteral("Sign into your iCloud account to use Quillet. Without this your snippets will "
                       "only ever save locally.");
    QString action = QStringLiteral("Okay");
};

// Asks the container for the account and calls `warn`, in a later turn of the main loop, where it is
// restricted or there is none. Any other status, and an error, calls nothing.
void checkAccount(platform::CKContainer& container, std::function<void(const AccountWarning&)> warn);

} // namespace quillet
