#pragma once

#include "Tessarine/base/TimerScheduler.h"

namespace tessarine {

// The toolkit's timers, accurate to a twentieth of the delay.
class QtTimerScheduler final : public TimerScheduler {
public:
    std::unique_ptr<ScheduledTimer> schedule(std::chrono::duration<double> delay, Action action) override;
};

} // namespace tessarine
