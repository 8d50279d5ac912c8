#include "platform/foundation/Observable.h"

#include <gtest/gtest.h>

#include <vector>

using platform::Observable;
using platform::Subscription;

namespace {

TEST(Observable, TellsTheCurrentValueAndEachLaterOne) {
    Observable<int> observable(1);
    std::vector<int> seen;
    const Subscription subscription = observable.observe([&](int value) { seen.push_back(value); });
    observable.set(2);
    observable.set(2);
    EXPECT_EQ(seen, (std::vector{1, 2, 2}));
}

TEST(Observable, AnEndedSubscriptionIsNotTold) {
    Observable<int> observable(0);
    std::vector<int> seen;
    auto subscription =
        std::make_unique<Subscription>(observable.observe([&](int value) { seen.push_back(value); }));
    subscription.reset();
    observable.set(1);
    EXPECT_EQ(seen, (std::vector{0}));
}

TEST(Observable, AnObserverMayEndItselfAndOthersWhileItIsTold) {
    Observable<int> observable(0);
    std::vector<int> second;
    Subscription b;
    Subscription a = observable.observe([&](int value) {
        if (value == 1) b = Subscription();
    });
    b = observable.observe([&](int value) { second.push_back(value); });
    observable.set(1);
    observable.set(2);
    EXPECT_EQ(second, (std::vector{0}));
}

TEST(Observable, SubscriptionsMayOutliveTheObservable) {
    Subscription subscription;
    {
        Observable<int> observable(0);
        subscription = observable.observe([](int) {});
    }
    subscription = Subscription();
}

} // namespace
