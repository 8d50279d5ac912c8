#include "Tessarine/editing/UndoManager.h"

namespace tessarine {

void UndoManager::beginUndoGrouping() {
    if (m_work == Work::none) ++m_groupingLevel;
}

void UndoManager::endUndoGrouping() {
    if (m_groupingLevel > 0 && --m_groupingLevel == 0) pushRecorded(m_undoStack);
}

void UndoManager::pushRecorded(Stack& stack) {
    Group group = std::exchange(m_recorded, {});
    if (!group.actions.empty()) stack.push_back(std::move(group));
}

void UndoManager::setActionName(std::string name) {
    if (m_groupingLevel > 0 || m_work != Work::none)
        m_recorded.name = std::move(name);
    else if (!m_undoStack.empty())
        m_undoStack.back().name = std::move(name);
}

void UndoManager::registerUndo(Action action) {
    if (m_work == Work::none) {
        m_redoStack.clear();
        if (m_recorded.actions.empty()) m_recorded.state = m_state;
        m_state = ++m_latestState;
    }
    m_recorded.actions.push_back(std::move(action));
    if (m_work == Work::none && m_groupingLevel == 0) pushRecorded(m_undoStack);
}

void UndoManager::undo() {
    takeBack(m_undoStack, m_redoStack, Work::undoing);
}

void UndoManager::redo() {
    takeBack(m_redoStack, m_undoStack, Work::redoing);
}

void UndoManager::takeBack(Stack& from, Stack& to, Work work) {
    if (m_work != Work::none) return;
    while (m_groupingLevel > 0)
        endUndoGrouping();
    if (from.empty()) return;
    m_work = work;
    m_running = std::move(from.back());
    from.pop_back();
    m_recorded.name = m_running.name;
    m_recorded.state = std::exchange(m_state, m_running.state);
    runActions();
    m_work = Work::none;
    pushRecorded(to);
}

// An action leaves the group before it runs, as it may remove all actions.
void UndoManager::runActions() {
    while (!m_running.actions.empty()) {
        Action action = std::move(m_running.actions.back());
        m_running.actions.pop_back();
        action();
    }
}

void UndoManager::removeAllActions() {
    m_undoStack.clear();
    m_redoStack.clear();
    m_recorded = {};
    m_running = {};
    m_groupingLevel = 0;
    m_state = ++m_latestState;
}

std::string UndoManager::undoActionName() const {
    return isRecordingNew() ? m_recorded.name : topName(m_undoStack);
}

std::string UndoManager::redoActionName() const {
    return topName(m_redoStack);
}

} // namespace tessarine
