#include "platform/foundation/Timer.h"

#include <QtTest/QTest>
#include <gtest/gtest.h>

#include <optional>

using platform::Timer;
using namespace std::chrono_literals;

namespace {

// What is due long after the test ends; a test that waits for it has failed.
constexpr auto never = 1h;

TEST(Timer, AOneShotRunsOnceAndAgainAfterAStart) {
    int runs = 0;
    Timer timer(Timer::Kind::OneShot, 0ms, [&] { ++runs; });
    QTest::qWait(5);
    EXPECT_EQ(runs, 0);
    timer.start();
    timer.start();
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(runs, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return runs > 0; }));
    QTest::qWait(5);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(timer.isActive());
    timer.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return runs == 2; }));
}

TEST(Timer, AStartBeginsTheIntervalAnew) {
    QStringList order;
    Timer restarted(Timer::Kind::OneShot, 60ms, [&] { order << QStringLiteral("restarted"); });
    Timer other(Timer::Kind::OneShot, 60ms, [&] { order << QStringLiteral("other"); });
    restarted.start();
    other.start();
    restarted.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return order.size() == 2; }));
    EXPECT_EQ(order, (QStringList{QStringLiteral("other"), QStringLiteral("restarted")}));
}

TEST(Timer, ARepeatingOneRunsUntilItIsStoppedFromItsOwnWork) {
    int runs = 0;
    std::optional<Timer> timer;
    timer.emplace(Timer::Kind::Repeating, 1ms, [&] {
        if (++runs == 3) timer->stop();
    });
    timer->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->isActive(); }));
    QTest::qWait(10);
    EXPECT_EQ(runs, 3);
}

TEST(Timer, ItsWorkMayDestroyIt) {
    std::optional<Timer> timer;
    QString seen;
    timer.emplace(Timer::Kind::Repeating, 0ms, [&, kept = QStringLiteral("kept by the work")] {
        timer.reset();
        seen = kept;
    });
    timer->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !seen.isEmpty(); }));
    EXPECT_EQ(seen, QStringLiteral("kept by the work"));
}

TEST(Timer, NothingRunsOnceItIsStoppedOrGone) {
    int runs = 0;
    std::optional<Timer> gone(std::in_place, Timer::Kind::OneShot, 0ms, [&] { ++runs; });
    Timer stopped(Timer::Kind::Repeating, 0ms, [&] { ++runs; });
    Timer later(Timer::Kind::OneShot, never, [&] { ++runs; });
    gone->start();
    stopped.start();
    later.start();
    gone.reset();
    stopped.stop();
    QTest::qWait(10);
    EXPECT_EQ(runs, 0);
    EXPECT_TRUE(later.isActive());
}

} // namespace
