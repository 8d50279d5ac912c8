#pragma once

#include <chrono>
#include <functional>
#include <memory>

class QTimer;

namespace platform {

// Runs its work in a later turn of the main loop. Made at rest. Main thread. Once it is stopped or gone its
// work does not run any more, and the work may stop, restart or destroy the timer that runs it.
class Timer {
public:
    enum class Kind { OneShot, Repeating };

    // Accurate to a twentieth of the interval. Not for what has to follow at once: see dispatchToMain.
    Timer(Kind kind, std::chrono::milliseconds interval, std::function<void()> work);
    ~Timer();

    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    // Waits a whole interval from now, also where it waits already: a burst of starts runs the work once.
    void start();
    void stop();
    // Whether it is going to run its work.
    bool isActive() const;

private:
    std::unique_ptr<QTimer> m_timer;
};

} // namespace platform
