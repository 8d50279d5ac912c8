#include "Tessarine/editing/TimedUndoManager.h"

namespace tessarine {

void TimedUndoManager::beginUndoGrouping() {
    if (hasOpenGroup()) return;
    UndoManager::beginUndoGrouping();
    if (hasOpenGroup())
        m_endGroupingTimer = m_scheduler->schedule(endGroupingInterval, [this] { endUndoGrouping(); });
}

void TimedUndoManager::endUndoGrouping() {
    m_endGroupingTimer.reset();
    UndoManager::endUndoGrouping();
}

void TimedUndoManager::removeAllActions() {
    m_endGroupingTimer.reset();
    UndoManager::removeAllActions();
}

} // namespace tessarine
