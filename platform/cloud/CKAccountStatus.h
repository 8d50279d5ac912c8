#pragma once

namespace platform {

// What is known of the user's account, without asking the server. The numbers are the cloud's own.
enum class CKAccountStatus {
    CouldNotDetermine = 0,
    Available = 1,
    Restricted = 2,
    NoAccount = 3,
    TemporarilyUnavailable = 4,
};

} // namespace platform
