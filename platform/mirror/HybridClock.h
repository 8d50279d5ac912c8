#pragma once

#include <cstdint>

namespace platform {

// Milliseconds since 1970 UTC by the wall.
using WallTime = std::int64_t;

// Gives the times of stamps: at least the wall's, and greater than every time given or followed before,
// however the wall's clock jumps. A time more than a day ahead of the wall is nobody's to follow: it orders
// the object that carries it, and no other.
class HybridClock {
public:
    // No correct device writes later times: a record that has one is malformed. Behind the year 2200, which a
    // wall's clock shows at most, there is room for the writes that follow a record's latest time.
    static constexpr std::uint64_t latestRecordTime = std::uint64_t{7'258'118'400'000} << 16; // the year 2200
    static constexpr std::uint64_t latestTime = std::uint64_t{7'289'654'400'000} << 16;       // the year 2201

    explicit HybridClock(std::uint64_t last = 0)
        : m_last(last) {}

    static std::uint64_t fromWall(WallTime wall);

    static WallTime toWall(std::uint64_t time) { return static_cast<WallTime>(time >> 16); }

    // Also greater than `atLeast`, the latest time of the object that is written.
    std::uint64_t next(WallTime wall, std::uint64_t atLeast = 0);
    // Takes the time of another device's write for the past.
    void observe(std::uint64_t time, WallTime wall);

    std::uint64_t last() const { return m_last; }

private:
    std::uint64_t m_last;
};

} // namespace platform
