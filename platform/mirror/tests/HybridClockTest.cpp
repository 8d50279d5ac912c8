#include "platform/mirror/HybridClock.h"

#include <gtest/gtest.h>

namespace platform {

namespace {

constexpr WallTime noon = 1'700'000'000'000;
constexpr WallTime day = 86'400'000;

TEST(HybridClockTest, GrowsHoweverTheWallJumps) {
    HybridClock clock;
    std::uint64_t last = 0;
    for (const WallTime wall :
         {noon, noon, noon - 400 * day, WallTime{-5}, noon + 1, noon + 9000 * day, noon}) {
        const auto time = clock.next(wall);
        EXPECT_GT(time, last);
        EXPECT_GE(time, HybridClock::fromWall(wall));
        EXPECT_LT(time, HybridClock::latestTime);
        last = time;
    }
    EXPECT_LT(clock.next(std::numeric_limits<WallTime>::max()), HybridClock::latestTime);
}

TEST(HybridClockTest, TheCounterCarriesIntoTheMilliseconds) {
    HybridClock clock;
    const auto first = clock.next(noon);
    for (int i = 0; i < 0xFFFF; ++i)
        clock.next(noon);
    EXPECT_EQ(clock.next(noon), first + 0x10000);
    EXPECT_EQ(HybridClock::toWall(clock.last()), noon + 1);
}

TEST(HybridClockTest, FollowsOthersUpToADayAhead) {
    HybridClock clock;
    const auto ahead = HybridClock::fromWall(noon + day);
    clock.observe(ahead, noon);
    EXPECT_EQ(clock.last(), ahead);
    clock.observe(ahead + 1, noon);
    EXPECT_EQ(clock.last(), ahead);
}

TEST(HybridClockTest, AFarFutureOrdersItsOwnObjectOnly) {
    HybridClock clock;
    const auto far = HybridClock::fromWall(noon + 1000 * day);
    EXPECT_EQ(clock.next(noon, far), far + 1);
    EXPECT_LT(clock.next(noon), HybridClock::fromWall(noon + day));
}

TEST(HybridClockTest, GoesOnFromWhereItWas) {
    HybridClock clock(HybridClock::fromWall(noon) + 7);
    EXPECT_EQ(clock.next(noon - day), HybridClock::fromWall(noon) + 8);
}

} // namespace

} // namespace platform
