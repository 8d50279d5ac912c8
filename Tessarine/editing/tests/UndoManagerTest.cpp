#include "Tessarine/editing/TimedUndoManager.h"
#include "Tessarine/editing/tests/FakeTimerScheduler.h"

#include <gtest/gtest.h>

#include <set>

using namespace tessarine;

namespace {

// A number that is set by undoable changes.
struct Value : std::enable_shared_from_this<Value> {
    explicit Value(UndoManager& undoManager)
        : manager(undoManager) {}

    void set(int newValue) {
        manager.registerUndo(weak_from_this(), [old = value](Value& target) { target.set(old); });
        value = newValue;
    }

    UndoManager& manager;
    int value = 0;
};

struct UndoManagerTest : ::testing::Test {
    void setInGroup(std::initializer_list<int> values, const char* name) {
        manager.beginUndoGrouping();
        for (const int each : values)
            value->set(each);
        manager.setActionName(name);
        manager.endUndoGrouping();
    }

    UndoManager manager;
    std::shared_ptr<Value> value = std::make_shared<Value>(manager);
};

TEST_F(UndoManagerTest, GroupsAreUndoneAndRedoneAsOne) {
    setInGroup({1, 2}, "first");
    value->set(3);
    setInGroup({4, 5, 6}, "last");
    for (const int expected : {3, 2, 0}) {
        manager.undo();
        EXPECT_EQ(value->value, expected);
    }
    EXPECT_FALSE(manager.canUndo());
    for (const int expected : {2, 3, 6}) {
        manager.redo();
        EXPECT_EQ(value->value, expected);
    }
    EXPECT_FALSE(manager.canRedo());
    manager.undo();
    EXPECT_EQ(value->value, 3);
}

TEST_F(UndoManagerTest, GroupsWithinAGroupArePartOfIt) {
    manager.beginUndoGrouping();
    setInGroup({1}, "inner");
    EXPECT_EQ(manager.groupingLevel(), 1);
    EXPECT_TRUE(manager.canUndo());
    value->set(2);
    manager.endUndoGrouping();
    manager.undo();
    EXPECT_EQ(value->value, 0);
    EXPECT_FALSE(manager.canUndo());
}

TEST_F(UndoManagerTest, UndoEndsOpenGroupsAndEmptyOnesLeaveNothing) {
    value->set(1);
    manager.beginUndoGrouping();
    manager.beginUndoGrouping();
    manager.undo();
    EXPECT_EQ(manager.groupingLevel(), 0);
    EXPECT_EQ(value->value, 0);
    manager.endUndoGrouping();
    EXPECT_FALSE(manager.canUndo());
    manager.redo();
    EXPECT_EQ(value->value, 1);
}

TEST_F(UndoManagerTest, NamesFollowTheirGroups) {
    setInGroup({1}, "one");
    value->set(2);
    manager.setActionName("two");
    EXPECT_EQ(manager.undoActionName(), "two");
    manager.undo();
    EXPECT_EQ(manager.undoActionName(), "one");
    EXPECT_EQ(manager.redoActionName(), "two");
    manager.undo();
    EXPECT_EQ(manager.undoActionName(), "");
    EXPECT_EQ(manager.redoActionName(), "one");
    manager.redo();
    EXPECT_EQ(manager.undoActionName(), "one");
}

TEST_F(UndoManagerTest, StatesAreKnownAgain) {
    const std::int64_t first = manager.state();
    setInGroup({1, 2}, "");
    const std::int64_t second = manager.state();
    manager.beginUndoGrouping();
    value->set(3);
    const std::int64_t within = manager.state();
    value->set(4);
    manager.endUndoGrouping();
    const std::int64_t third = manager.state();
    for (const auto expected : {second, first}) {
        manager.undo();
        EXPECT_EQ(manager.state(), expected);
    }
    for (const auto expected : {second, third}) {
        manager.redo();
        EXPECT_EQ(manager.state(), expected);
    }
    manager.undo();
    value->set(4);
    const std::int64_t other = manager.state();
    manager.removeAllActions();
    EXPECT_EQ(std::set({first, second, within, third, other, manager.state()}).size(), 6U);
}

TEST_F(UndoManagerTest, ANewActionEndsWhatCouldBeRedone) {
    value->set(1);
    manager.undo();
    EXPECT_TRUE(manager.canRedo());
    value->set(2);
    EXPECT_FALSE(manager.canRedo());
    manager.undo();
    EXPECT_EQ(value->value, 0);
}

TEST_F(UndoManagerTest, WhatIsRegisteredWhileUndoingIsOneGroupWhateverGroupsAreBegun) {
    manager.beginUndoGrouping();
    for (int i = 0; i < 2; ++i)
        manager.registerUndo([this] {
            EXPECT_TRUE(manager.isUndoing());
            setInGroup({value->value + 1}, "inner");
            manager.undo();
            manager.redo();
        });
    manager.endUndoGrouping();
    manager.undo();
    EXPECT_EQ(value->value, 2);
    EXPECT_FALSE(manager.canUndo());
    manager.redo();
    EXPECT_EQ(value->value, 0);
    EXPECT_FALSE(manager.canRedo());
    EXPECT_FALSE(manager.isRedoing());
}

TEST_F(UndoManagerTest, TargetsThatHaveGoneAndRemovedActionsDoNothing) {
    auto other = std::make_shared<Value>(manager);
    manager.beginUndoGrouping();
    value->set(1);
    other->set(1);
    manager.endUndoGrouping();
    other.reset();
    manager.undo();
    EXPECT_EQ(value->value, 0);
    value->set(2);
    manager.beginUndoGrouping();
    value->set(3);
    manager.removeAllActions();
    manager.undo();
    manager.redo();
    EXPECT_EQ(value->value, 3);
    EXPECT_EQ(manager.groupingLevel(), 0);
}

TEST_F(UndoManagerTest, ActionsMayRemoveAllActionsTheirOwnGroupAmongThem) {
    manager.beginUndoGrouping();
    value->set(1);
    manager.registerUndo([this] { manager.removeAllActions(); });
    value->set(2);
    manager.endUndoGrouping();
    manager.undo();
    EXPECT_EQ(value->value, 1);
    EXPECT_FALSE(manager.canUndo() || manager.canRedo());
    value->set(3);
    manager.undo();
    EXPECT_EQ(value->value, 1);
}

struct TimedUndoManagerTest : ::testing::Test {
    void type(int newValue) {
        manager.beginUndoGrouping();
        value->set(newValue);
    }

    std::shared_ptr<FakeTimerScheduler> clock = std::make_shared<FakeTimerScheduler>();
    TimedUndoManager manager{clock};
    std::shared_ptr<Value> value = std::make_shared<Value>(manager);
};

TEST_F(TimedUndoManagerTest, ASecondBeginsWithTheGroupAndNotWithEachEdit) {
    type(1);
    clock->advance(0.9);
    type(2);
    EXPECT_EQ(clock->timerCount(), 1U);
    clock->advance(0.2);
    EXPECT_FALSE(manager.hasOpenGroup());
    EXPECT_EQ(clock->timerCount(), 0U);
    type(3);
    manager.undo();
    EXPECT_EQ(value->value, 2);
    EXPECT_EQ(clock->timerCount(), 0U);
    manager.undo();
    EXPECT_EQ(value->value, 0);
    manager.redo();
    EXPECT_EQ(value->value, 2);
    EXPECT_FALSE(manager.hasOpenGroup());
}

TEST_F(TimedUndoManagerTest, GroupsDoNotNestAndEndWithTheirTimer) {
    type(1);
    manager.beginUndoGrouping();
    manager.endUndoGrouping();
    EXPECT_FALSE(manager.hasOpenGroup());
    EXPECT_EQ(clock->timerCount(), 0U);
    type(2);
    manager.removeAllActions();
    EXPECT_EQ(clock->timerCount(), 0U);
    EXPECT_FALSE(manager.hasOpenGroup());
}

} // namespace
