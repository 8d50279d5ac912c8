#pragma once

#include "platform/mirror/MirrorEnvironment.h"

#include <optional>

namespace platform {

// How things stand between this device and the cloud.
struct MirrorStatus {
    enum class State {
        Starting,
        UpToDate, // at the latest look nothing was left to send or to take
        Waiting,  // for the next try, after `error`
    };
    State state = State::Starting;
    std::optional<MirrorError> error;

    bool operator==(const MirrorStatus&) const = default;
};

} // namespace platform
