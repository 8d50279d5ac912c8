#pragma once

#include <atomic>

namespace tessarine {

// One piece of work of an OperationQueue, as whoever asked for it and the work itself see it: it can be
// called off, and then it is up to the work to look and end. Any thread.
class Operation {
public:
    void cancel() { m_isCancelled.store(true, std::memory_order_release); }

    bool isCancelled() const { return m_isCancelled.load(std::memory_order_acquire); }

private:
    std::atomic<bool> m_isCancelled = false;
};

} // namespace tessarine
