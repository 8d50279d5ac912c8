#pragma once

#include "Tessarine/base/TimerScheduler.h"
#include "Tessarine/editing/UndoManager.h"

#include <chrono>
#include <memory>

namespace tessarine {

// Makes one group of what is done within a second. The second begins with the group and not anew with each
// edit; groups do not nest.
class TimedUndoManager final : public UndoManager {
public:
    static constexpr std::chrono::duration<double> endGroupingInterval{1.0};

    explicit TimedUndoManager(std::shared_ptr<TimerScheduler> scheduler)
        : m_scheduler(std::move(scheduler)) {}

    // Without effect where a group is open.
    void beginUndoGrouping() override;
    void endUndoGrouping() override;
    void removeAllActions() override;

    bool hasOpenGroup() const { return groupingLevel() > 0; }

private:
    const std::shared_ptr<TimerScheduler> m_scheduler;
    std::unique_ptr<ScheduledTimer> m_endGroupingTimer; // runs as long as a group is open
};

} // namespace tessarine
