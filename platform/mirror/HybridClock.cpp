#include "platform/mirror/HybridClock.h"

#include <algorithm>

namespace platform {

namespace {

constexpr WallTime day = 24 * 60 * 60 * 1000;
constexpr WallTime latestWall = 7'258'118'400'000; // the year 2200

bool isFollowed(std::uint64_t time, WallTime wall) {
    return time <= HybridClock::fromWall(std::min(wall, latestWall) + day);
}

} // namespace

std::uint64_t HybridClock::fromWall(WallTime wall) {
    return static_cast<std::uint64_t>(std::clamp<WallTime>(wall, 0, latestWall)) << 16;
}

std::uint64_t HybridClock::next(WallTime wall, std::uint64_t atLeast) {
    observe(atLeast, wall);
    m_last = std::max(m_last + 1, fromWall(wall));
    return std::max(m_last, atLeast + 1);
}

void HybridClock::observe(std::uint64_t time, WallTime wall) {
    if (isFollowed(time, wall)) m_last = std::max(m_last, time);
}

} // namespace platform
