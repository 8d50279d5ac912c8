#include "platform/mirror/Backoff.h"

#include <gtest/gtest.h>

namespace platform {

namespace {

using namespace std::chrono_literals;

TEST(BackoffTest, DoublesUpToACapWithinItsJitter) {
    Backoff backoff(1s, 10s);
    EXPECT_EQ(backoff.next(0), 500ms);
    EXPECT_EQ(backoff.next(0.5), 1500ms);
    EXPECT_EQ(backoff.next(0), 2s);
    EXPECT_EQ(backoff.next(0.999), 7996ms);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(backoff.next(0), 5s);
    backoff.reset();
    EXPECT_EQ(backoff.next(0), 500ms);
}

} // namespace

} // namespace platform
