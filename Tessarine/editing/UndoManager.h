#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tessarine {

// What can be taken back, and what was taken back and can be done again.
//
// Actions stand in groups. A group is taken back as one, its last action first; groups within a group are
// part of it. What actions register while a group is undone makes up the one group that redoes it, and the
// reverse. Any other new action ends what could be redone. Thread: the main one. It must outlive its undo()
// and redo().
class UndoManager {
public:
    using Action = std::move_only_function<void()>;

    UndoManager() = default;
    UndoManager(const UndoManager&) = delete;
    UndoManager& operator=(const UndoManager&) = delete;
    virtual ~UndoManager() = default;

    // Without effect while something is undone or redone.
    virtual void beginUndoGrouping();
    virtual void endUndoGrouping(); // nor without a group

    int groupingLevel() const { return m_groupingLevel; }

    // Of the open group, else of the last one. The group that redoes another has the same name.
    void setActionName(std::string name);

    // Outside of a group the action is a group by itself.
    void registerUndo(Action action);

    // Does nothing when the target has gone.
    template <class Target, class Work>
    void registerUndo(std::weak_ptr<Target> target, Work work) {
        registerUndo(Action([target = std::move(target), work = std::move(work)]() mutable {
            if (const auto living = target.lock()) work(*living);
        }));
    }

    // Open groups end first. From within an action of the manager they have no effect.
    virtual void undo();
    virtual void redo();

    // Also ends the group that is open, and what is left of one being undone.
    virtual void removeAllActions();

    bool canUndo() const { return isRecordingNew() || !m_undoStack.empty(); }

    bool canRedo() const { return !m_redoStack.empty(); }

    // Tells the states of what is edited apart: a number comes back with the state that undo or redo bring
    // back, and no other state has it. Actions that edit beside what they take back are not told.
    std::int64_t state() const { return m_state; }

    // Empty if there is nothing or it has no name.
    std::string undoActionName() const;
    std::string redoActionName() const;

    bool isUndoing() const { return m_work == Work::undoing; }

    bool isRedoing() const { return m_work == Work::redoing; }

private:
    enum class Work { none, undoing, redoing };

    struct Group {
        std::string name;
        std::vector<Action> actions;
        std::int64_t state = 0; // that it leads to
    };

    using Stack = std::vector<Group>;

    bool isRecordingNew() const { return m_work == Work::none && !m_recorded.actions.empty(); }

    static std::string topName(const Stack& stack) { return stack.empty() ? "" : stack.back().name; }

    void pushRecorded(Stack& stack);
    void takeBack(Stack& from, Stack& to, Work work);
    void runActions();

    Stack m_undoStack;
    Stack m_redoStack;
    Group m_recorded; // where actions go while a group is open or taken back
    Group m_running;  // what is left of the group being taken back
    int m_groupingLevel = 0;
    std::int64_t m_state = 0;
    std::int64_t m_latestState = 0; // of all that there have been
    Work m_work = Work::none;
};

} // namespace tessarine
