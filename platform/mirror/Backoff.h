#pragma once

#include <chrono>

namespace platform {

// How long to wait before the next attempt at a server that failed: twice as long each time, up to a cap, and
// each time a random part of it off, so that many devices do not come back at once.
class Backoff {
public:
    using Duration = std::chrono::milliseconds;

    Backoff(Duration first, Duration longest)
        : m_first(first)
        , m_longest(longest)
        , m_next(first) {}

    // `chance` in [0, 1); the result is in [half, all) of the current wait.
    Duration next(double chance);

    void reset() { m_next = m_first; }

private:
    Duration m_first;
    Duration m_longest;
    Duration m_next;
};

} // namespace platform
