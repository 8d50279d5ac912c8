#include "Tessarine/view/QtMainExecutor.h"
#include "Tessarine/view/QtTimerScheduler.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace tessarine;
using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

TEST(QtMainExecutor, CallsInOrderOnTheMainThreadAndNeverAtOnce) {
    QtMainExecutor executor;
    std::vector<int> called;
    const auto add = [&](int number) {
        executor.post(
            [&, number, mainThread = std::make_unique<std::thread::id>(std::this_thread::get_id())] {
                called.push_back(number);
                if (number == 2) executor.post([&] { called.push_back(4); });
            });
    };
    add(1);
    std::jthread([&] { add(2); }).join();
    add(3);
    EXPECT_THAT(called, IsEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return called.size() == 4; }));
    EXPECT_THAT(called, ElementsAre(1, 2, 3, 4));
}

TEST(QtMainExecutor, DropsAtItsEndWhatIsQueued) {
    bool isCalled = false;
    const auto token = std::make_shared<int>();
    {
        QtMainExecutor executor;
        executor.post([&, token] { isCalled = true; });
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(isCalled);
    EXPECT_EQ(token.use_count(), 1);
}

TEST(QtTimerScheduler, CallsOnceUnlessTheTimerEndsBefore) {
    QtTimerScheduler scheduler;
    std::vector<int> called;
    const auto kept = scheduler.schedule(0s, [&] { called.push_back(1); });
    auto ended = scheduler.schedule(0s, [&] { called.push_back(2); });
    const auto late = scheduler.schedule(1e12s, [&] { called.push_back(3); });
    bool isOver = false;
    const auto last = scheduler.schedule(20ms, [&] { isOver = true; });
    ended.reset();
    EXPECT_THAT(called, IsEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return isOver; }));
    EXPECT_THAT(called, ElementsAre(1));
}

TEST(QtTimerScheduler, ATimerMayEndInItsAction) {
    QtTimerScheduler scheduler;
    std::unique_ptr<ScheduledTimer> timer;
    int calls = 0;
    timer = scheduler.schedule(-1s, [&] {
        ++calls;
        timer = scheduler.schedule(0s, [&] {
            ++calls;
            timer.reset();
        });
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !timer; }));
    EXPECT_EQ(calls, 2);
}

} // namespace
