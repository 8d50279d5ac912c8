#include "Tessarine/base/OperationQueue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <vector>

using namespace tessarine;

namespace {

TEST(OperationQueue, RunsOneAfterTheOtherInOrderOnAThreadOfItsOwn) {
    std::vector<int> order;
    std::promise<std::thread::id> done;
    OperationQueue queue("TreeSitterLanguageMode");
    for (int i = 0; i < 100; ++i)
        queue.add([&order, i](const auto&) { order.push_back(i); });
    queue.add([&](const auto&) { done.set_value(std::this_thread::get_id()); });
    EXPECT_NE(done.get_future().get(), std::this_thread::get_id());
    ASSERT_EQ(order.size(), 100);
    EXPECT_TRUE(std::ranges::is_sorted(order));
}

TEST(OperationQueue, CancelledWorkStillRunsAndSeesIt) {
    std::promise<void> started;
    std::promise<void> cancelled;
    std::promise<std::pair<bool, bool>> seen;
    OperationQueue queue("q");
    bool runningIsCancelled = false;
    queue.add([&](const auto& operation) {
        started.set_value();
        cancelled.get_future().wait();
        runningIsCancelled = operation->isCancelled();
    });
    const auto waiting = queue.add(
        [&](const auto& operation) { seen.set_value({runningIsCancelled, operation->isCancelled()}); });
    started.get_future().wait();
    queue.cancelAllOperations();
    EXPECT_TRUE(waiting->isCancelled());
    const auto later = queue.add([](const auto&) {});
    EXPECT_FALSE(later->isCancelled());
    cancelled.set_value();
    EXPECT_EQ(seen.get_future().get(), std::pair(true, true));
}

TEST(OperationQueue, ItsEndCancelsAndRunsWhatStillWaits) {
    std::promise<void> started;
    int cancelled = 0;
    {
        OperationQueue queue("q");
        queue.add([&](const auto& operation) {
            started.set_value();
            while (!operation->isCancelled())
                std::this_thread::yield();
            ++cancelled;
        });
        for (int i = 0; i < 10; ++i)
            queue.add([&](const auto& operation) { cancelled += operation->isCancelled() ? 1 : 0; });
        started.get_future().wait();
    }
    EXPECT_EQ(cancelled, 11);
}

} // namespace
