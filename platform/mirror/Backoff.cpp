#include "platform/mirror/Backoff.h"

#include <algorithm>

namespace platform {

Backoff::Duration Backoff::next(double chance) {
    const Duration wait = m_next;
    m_next = std::min(m_longest, 2 * m_next);
    return std::chrono::duration_cast<Duration>(wait * (1 + chance) / 2);
}

} // namespace platform
