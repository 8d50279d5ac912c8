#include "Tessarine/document/ByteCount.h"

#include <gtest/gtest.h>

#include <limits>

using tessarine::ByteCount;

namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

TEST(ByteCountDeathTest, OverflowStopsTheProgram) {
    EXPECT_EQ((ByteCount(largest) - 1 + 1).value(), largest);
    EXPECT_DEATH(ByteCount(largest) + 1, "overflows");
    EXPECT_DEATH(ByteCount(least) - 1, "overflows");
    EXPECT_DEATH(ByteCount::ofCodeUnits(largest), "overflows");
    EXPECT_DEATH(ByteCount(least).magnitude(), "overflows");
}

TEST(ByteCount, BehavesAsANumberOfBytes) {
    EXPECT_EQ(ByteCount::of(u"a\U0001F600"), 6);
    EXPECT_EQ(ByteCount(-5).magnitude(), 5);
    EXPECT_LT(ByteCount(-1), ByteCount());
    EXPECT_EQ((ByteCount(2) * 3 - 1).description(), "5");
}

} // namespace
