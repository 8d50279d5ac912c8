#include "Tessarine/layout/manager/ViewReuseQueue.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

using namespace tessarine;

namespace {

struct CountedView {
    CountedView() { ++made; }

    void prepareForReuse() { ++reuses; }

    void removeFromSuperview() { ++removals; }

    static inline int made = 0;
    int reuses = 0;
    int removals = 0;
};

using Queue = ViewReuseQueue<int, CountedView>;

TEST(ViewReuseQueue, KeepsTheViewOfAKeyAndReusesTheOthers) {
    CountedView::made = 0;
    Queue queue;
    const auto first = queue.dequeueView(1);
    EXPECT_EQ(queue.dequeueView(1), first);
    const auto second = queue.dequeueView(2);
    EXPECT_NE(first, second);
    queue.enqueueViews({1, 7});
    EXPECT_EQ(first->reuses, 1);
    EXPECT_EQ(first->removals, 1);
    EXPECT_EQ(second->reuses, 0);
    EXPECT_EQ(queue.dequeueView(3), first);
    EXPECT_EQ(queue.dequeueView(2), second);
    queue.enqueueViewsExcept({3});
    EXPECT_EQ(second->removals, 1);
    EXPECT_EQ(first->removals, 1);
    EXPECT_EQ(CountedView::made, 2);
}

TEST(ViewReuseQueue, NeverShowsAViewTwice) {
    std::mt19937 random(3);
    Queue queue;
    std::map<int, CountedView*> shown;
    for (int step = 0; step < 2'000; ++step) {
        Queue::Keys keys;
        for (int i = 0; i < 6; ++i)
            keys.insert(static_cast<int>(random() % 20));
        for (const int key : keys) {
            const auto known = shown.find(key);
            CountedView* const view = queue.dequeueView(key).get();
            ASSERT_TRUE(known == shown.end() || view == known->second) << "a view has changed under its key";
            shown[key] = view;
        }
        const bool keepsThese = random() % 2 == 0;
        keepsThese ? queue.enqueueViewsExcept(keys) : queue.enqueueViews(keys);
        std::erase_if(shown, [&](const auto& entry) { return keys.contains(entry.first) != keepsThese; });
        std::set<CountedView*> views;
        for (const auto& [key, view] : shown)
            views.insert(view);
        ASSERT_EQ(views.size(), shown.size());
        ASSERT_EQ(queue.visibleViews().size(), shown.size());
    }
    EXPECT_LE(queue.queuedViewCount() + shown.size(), 20U);
}

} // namespace
